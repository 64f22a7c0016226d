// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

/// Plain rows of the list tables, for those who read them without a database.
namespace soran {

/// A row of 飛行場情報 or 自動デコード.
struct Airport {
  QString code; ///< ICAOコード, four letters
  QString name; ///< 飛行場名
  bool operator==(const Airport&) const = default;
};

/// A row of 気象略語 or 日本語解析.
struct DictionaryEntry {
  QString abbreviation; ///< 略語
  QString meaning;      ///< 意味
  bool operator==(const DictionaryEntry&) const = default;
};

/// A row of カンパニー.
struct Group {
  QString id;    ///< what is typed and shown
  QString route; ///< the code list
  bool operator==(const Group&) const = default;
};

/// The code of a row of 空港別制限 that is for every airport.
inline constexpr QStringView allAirports = u"ALL";

/// A row of 空港別制限: the limits of one condition at one airport. One that is missing is that of the row
/// for all airports, else that of the settings.
struct AirportLimits {
  QString code;                        ///< ICAOコード, four letters, or allAirports
  int condition = 1;                   ///< 条件, 1 to 3
  std::optional<int> visibility = {};  ///< 視程, metres
  std::optional<int> runwayRange = {}; ///< RVR, metres
  std::optional<int> ceiling = {};     ///< 雲高, feet
  std::optional<int> wind = {};        ///< 風速, knots
  std::optional<int> gust = {};        ///< 突風, knots
  std::optional<int> crosswind = {};   ///< 横風, knots
  QString weather = {};                ///< 天気, words separated by blanks
  bool operator==(const AirportLimits&) const = default;
};

} // namespace soran
