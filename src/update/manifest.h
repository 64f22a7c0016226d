// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace soran {

/// One file of a program's package as a manifest tells it.
struct ProgramFile {
  QString name;      ///< its place from the program's folder: "soran", or "soran-" and more, or such a name
                     ///< between "../lib/soran/plugins/" and ".so"
  QString path;      ///< where the endpoint has it, relative to the manifest's folder
  qint64 size = 0;   ///< in bytes, never above largestProgramFile
  QByteArray sha256; ///< 32 bytes
};

/// What an endpoint offers for one system.
struct Manifest {
  QString version; ///< four characters, such as "4.31"
  QList<ProgramFile> files;
};

inline constexpr qint64 largestManifest = 64LL * 1024;
inline constexpr qint64 largestProgramFile = 128LL * 1024 * 1024;
inline constexpr qsizetype mostProgramFiles = 16;

/// The name of this kind of machine in an endpoint, such as "linux-x86_64".
QString thisSystem();

/// The path of a system's manifest under the update endpoint; its signature lies beside it with ".sig".
QString manifestPath(const QString& system);

/// True for a version of the form "4.31".
bool isVersion(const QString& text);

/// Reads a manifest whose signature was found good. Throws UpdateError where it is for another system, names
/// a file that does not belong beside the program, or lacks anything.
Manifest readManifest(const QByteArray& json, const QString& system);

} // namespace soran
