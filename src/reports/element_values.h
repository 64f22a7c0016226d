// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QChar>
#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

/// The elements of a METAR or of a part of a TAF as values (WMO No. 306, FM 15, FM 16 and FM 51; ICAO Annex
/// 3). An element that the report does not have, or has as slashes, is nothing and never 0.
namespace soran {

/// A stretch of a text: UTF-16 units from 0.
struct Words {
  qsizetype start = 0;
  qsizetype length = 0;

  qsizetype end() const { return start + length; }
  QStringView in(QStringView text) const { return text.sliced(start, length); }
  bool operator==(const Words&) const = default;
};

/// What a figure says of the value: a report cannot tell more than its figures hold.
enum class Bound { Exact, Below, Above };

enum class SpeedUnit { Knots, MetresPerSecond, KilometresPerHour };

struct Speed {
  int value = 0; ///< in the unit of the wind
  Bound bound = Bound::Exact;

  bool operator==(const Speed&) const = default;
};

struct Wind {
  std::optional<int> direction = {}; ///< degrees true, 0 with a calm; nothing where it is variable
  bool isVariable = false;           ///< VRB
  std::optional<Speed> speed = {};
  std::optional<Speed> gust = {};
  SpeedUnit unit = SpeedUnit::Knots;
  Words words = {};

  bool operator==(const Wind&) const = default;
};

/// The directions between which the wind varies, clockwise, in degrees true: 310V010.
struct WindSector {
  int from = 0;
  int to = 0;
  Words words = {};

  bool operator==(const WindSector&) const = default;
};

/// The figures of a visibility of 10 km and more.
inline constexpr int tenKilometresAndMore = 9999;

/// A prevailing visibility. Metres stand as they are reported, so 9999 is 10 km and more; kilometres and
/// statute miles are turned into metres.
struct Visibility {
  int metres = 0;
  Bound bound = Bound::Exact;
  Words words = {};

  bool operator==(const Visibility&) const = default;
};

struct RunwayRange {
  Words runway = {}; ///< "34L"
  int metres = 0;    ///< the least one of a range that varies; feet are turned into metres
  Bound bound = Bound::Exact;
  QChar tendency = {}; ///< U, D, N, or U+0000 where it is not known
  Words words = {};

  bool operator==(const RunwayRange&) const = default;
};

struct Ceiling {
  int feet = 0;
  bool isHeightMissing = false; ///< VV///, which counts as 0 feet
  Words words = {};

  bool operator==(const Ceiling&) const = default;
};

struct Temperatures {
  std::optional<int> air = {}; ///< degrees Celsius
  std::optional<int> dewPoint = {};
  Words words = {};

  bool operator==(const Temperatures&) const = default;
};

struct Pressure {
  double hectopascals = 0; ///< from inches with a remainder
  Words words = {};

  bool operator==(const Pressure&) const = default;
};

struct ElementValues {
  std::optional<Wind> wind = {};
  std::optional<WindSector> sector = {};
  std::optional<Words> cavok = {};
  std::optional<Visibility> visibility = {}; ///< the lowest of several; nothing with CAVOK
  std::vector<RunwayRange> runwayRanges = {};
  std::vector<Words> weather = {};      ///< present or forecast, not that of the hour before
  bool hidesWeather = false;            ///< "//": a station without people cannot tell it
  std::optional<Words> noWeather = {};  ///< NSW
  std::vector<Words> clouds = {};       ///< layers, vertical visibility, and the words of a sky without any
  std::optional<Ceiling> layer = {};    ///< the lowest of BKN and OVC
  std::optional<Ceiling> vertical = {}; ///< VV, of a sky that cannot be seen
  std::optional<Words> unknownCeiling =
      {};                    ///< the first layer without an amount, or BKN or OVC without height
  bool hidesCeiling = false; ///< such a one may lie below any other
  std::optional<Temperatures> temperatures = {};
  std::optional<Pressure> pressure = {}; ///< QNH
  /// Groups that were meant for an element and are none, such as a letter O for a nought.
  std::vector<Words> unread = {};
  /// A lowest visibility with its direction, which is not compared with limits: "0300N".
  std::optional<Words> directional = {};

  /// The lowest of the runways; null where none is reported.
  const RunwayRange* leastRunwayRange() const;
  /// The lower of layer and vertical visibility; null where neither is reported.
  const Ceiling* ceiling() const;
  /// The group of the visibility, or CAVOK, which stands for it.
  const Words* visibilityWords() const { return visibility ? &visibility->words : cavok ? &*cavok : nullptr; }
  /// The group of the ceiling, else that of one whose height is not known.
  const Words* ceilingWords() const {
    const Ceiling* known = ceiling();
    return known ? &known->words : unknownCeiling ? &*unknownCeiling : nullptr;
  }
  /// Metres of the visibility; those of 9999 with CAVOK.
  std::optional<int> visibilityMetres() const {
    return visibility ? std::optional(visibility->metres)
           : cavok    ? std::optional(tenKilometresAndMore)
                      : std::nullopt;
  }
  /// The groups of all elements, in the order of a report.
  std::vector<Words> allWords() const;
  /// Prevailing visibility and ceiling are known, be it that there is no ceiling; CAVOK tells both.
  bool tellsVisibility() const { return cavok || visibility; }
  bool tellsCeiling() const { return cavok || (!clouds.empty() && !hidesCeiling); }
  /// Weather is known, be it that there is none.
  bool tellsWeather() const {
    return cavok || noWeather || !weather.empty() || (visibility && !hidesWeather);
  }
  /// No element at all is told.
  bool isEmpty() const;
  bool operator==(const ElementValues&) const = default;
};

/// The elements of the groups in a stretch of the text. Groups are separated by blanks and line ends; an "="
/// ends them. Groups of another kind are passed over. Metres and feet are the figures that the colouring
/// compares with the limits.
ElementValues readElements(QStringView text, const Words& stretch);

/// The stretch of a METAR or SPECI, or of the file of a station, that tells of the observation: behind the
/// time of observation, up to the trend or the remarks. The whole text where it has no such time.
Words observationIn(QStringView text);

/// What `later` tells put over `earlier` (the changed elements of FM 51): an element that it does not tell
/// stays. CAVOK stands for visibility, weather and cloud; each of these ends a CAVOK.
ElementValues mergedOver(const ElementValues& earlier, const ElementValues& later);

/// The groups as they stand in the text, with a blank between them.
QString joinedWords(QStringView text, const std::vector<Words>& groups);

/// A speed in knots.
double inKnots(const Speed& speed, SpeedUnit unit);

} // namespace soran
