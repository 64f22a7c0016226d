// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// How the database file is encrypted: AES-256 in CBC mode, each page with an HMAC-SHA1 of its own. These are
/// the parameters that SQLCipher 3.4 takes by itself; later releases take others by themselves and read these
/// where they are told, so that one file can be carried between them.
namespace soran::cipher {

/// The key as it stands in a statement, quotes included.
QString key();

/// The statements that state the parameters of the database `schema`, to be run right behind its key, before
/// anything is read.
QStringList parameters(QStringView schema);

/// Whether a file that the library took for no database is one all the same: a plain one, or one under the
/// program's key with other parameters or of a later version of the file format. Reads up to 64 KiB.
bool isDatabaseOfAnotherFormat(const QString& path);

/// Whether every page of a file in the program's own format carries its right code.
bool isUndamaged(const QByteArray& file);

/// Whether a file that begins with these bytes is a database: a plain one, or one under the program's key.
bool isDatabase(const QByteArray& beginning);

} // namespace soran::cipher
