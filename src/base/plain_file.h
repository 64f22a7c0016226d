// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace soran {

/// Why a file could not be read or written.
enum class FileFault {
  None,
  Missing,
  NotPlain, ///< a folder, a device, a pipe, or a link where none is followed
  TooLarge,
  NoPermission,
  NoFolder, ///< the folder of a file that is to be written is not there
  NoSpace,
  Failed, ///< for another reason
};

/// Whether the last part of a name may be a link. The program's own files are none; what the user names may.
enum class Links { Refused, Followed };

struct FileBytes {
  QByteArray bytes = {};
  FileFault fault = FileFault::None;

  bool ok() const { return fault == FileFault::None; }
};

/// The bound of a file that holds settings, and of one that holds lists, in bytes.
inline constexpr qint64 largestSettingsFile = 1LL << 20;
inline constexpr qint64 largestListFile = 16LL << 20;

/// All bytes of a plain file of at most `limit` bytes. Never waits for the other end of a pipe.
FileBytes readPlainFile(const QString& path, qint64 limit, Links links = Links::Refused);

/// Adds the bytes at the end of a plain file, which is made where there is none.
FileFault appendToPlainFile(const QString& path, const QByteArray& bytes);
/// The same for whole lines: a last line that was cut by a fault is ended first, so that it takes none of
/// them with it.
FileFault appendLines(const QString& path, const QByteArray& lines);

/// What stands under that name now can be replaced by a plain file: one, or nothing. None where it can.
FileFault replaceable(const QString& path, Links links = Links::Refused);

/// True where the name is taken by anything, a link that leads nowhere included.
bool nameIsTaken(const QString& path);

/// The reason in the words of a dialogue, and of a line on standard error. `limit` is told where a file is
/// too large.
QString faultText(FileFault fault, qint64 limit = 0);
QString faultLine(FileFault fault, qint64 limit = 0);

/// A name that nothing has: `path`, or with "-2", "-3" and so on behind it.
QString freeName(const QString& path);

} // namespace soran
