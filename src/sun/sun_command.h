// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QStringList>
#include <QStringView>
#include <optional>

namespace soran {

/// The lines of the command SS: one for each code of `list` (four-letter codes, one blank between them, taken
/// as they stand) with sunrise, sunset, elevation and ⊿H on `date`, without line ends; nothing for a text
/// that is not such a list.
std::optional<QStringList> sunCommandLines(QStringView list, QDate date);

/// The same lines as the command appends them to the screen: a line end, then every line with its line end
/// in front, then a line end.
QString sunCommandScreenText(const QStringList& lines);

/// The difference between the height of eye of 15 and an elevation, as the command prints it: rounded to one
/// decimal, with "+" above and "±" at zero.
QString eyeHeightDifference(QStringView elevation);

} // namespace soran
