// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/plain_file.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace soran {

/// True where the path names an existing file or directory.
bool fileExists(const QString& path);

/// Makes the directory, and those above it, with access for the user alone. An existing one is no failure.
/// False where it cannot be made.
bool makePrivateDirectory(const QString& path);

/// Writes `bytes` to the file through a temporary file beside it and a rename, so that the file holds either
/// its former content or all of the new. With `isPrivate` only the user may read it. False where it failed;
/// the former content is then untouched.
bool writeWhole(const QString& path, const QByteArray& bytes, bool isPrivate = false);

/// The same, and why it failed. What is no plain file is not replaced, a link only where it is followed.
FileFault replaceWhole(const QString& path, const QByteArray& bytes, bool isPrivate, Links links);

/// Gives the file a name that another one may have, which is then gone. False where it failed; both are then
/// as they were.
bool renameOver(const QString& from, const QString& to);

/// The bytes as text: UTF-8 where they are valid UTF-8, else Latin-1.
QString textOfBytes(const QByteArray& bytes);

} // namespace soran
