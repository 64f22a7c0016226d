// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace soran {

/// The largest picture that is stored, in bytes.
inline constexpr qsizetype largestPicture = qsizetype(8) * 1024 * 1024;

/// True for a PNG, JPEG, GIF or BMP file, by its first bytes, of at most that size.
bool isPicture(const QByteArray& bytes);

/// A file's bytes where it is such a picture; a larger file is not read.
std::optional<QByteArray> readPicture(const QString& path);

} // namespace soran
