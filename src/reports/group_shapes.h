// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <initializer_list>
#include <optional>

/// What a group of a report is, told by its form alone (ICAO Annex 3, WMO No. 306 FM 15; FMH-1 for statute
/// miles, inches and additive data). Internal to this folder.
namespace soran {

/// Whether a group has one of these shapes: '#' stands for a digit, any other character for itself.
bool hasShape(QStringView group, std::initializer_list<QStringView> shapes);

/// A wind group. Figures that were not reported are slashes.
struct WindGroup {
  QStringView direction; ///< degrees, "VRB" or "///"
  QStringView speed;     ///< figures with a "P" ahead where it is above them, or "//"
  QStringView gust;      ///< like the speed; empty where there is none
  QStringView unit;      ///< "KT", "MPS" or "KMH"; empty where it was left out
};
/// A group without its unit is a wind only where a wind is due.
enum class WindUnit { Stands, MayLack };
std::optional<WindGroup> windGroup(QStringView group, WindUnit unit = WindUnit::Stands);

/// A runway visual range group.
struct RunwayRangeGroup {
  QStringView runway; ///< "34L"
  QStringView
      least; ///< four figures with an "M" or a "P" ahead where it is outside them; "////" where missing
  QStringView greatest; ///< like `least`; empty where it does not vary
  bool feet = false;
  QChar tendency; ///< U, D, N, or U+0000 where it is not known
};
std::optional<RunwayRangeGroup> runwayRangeGroup(QStringView group);

/// A prevailing visibility in metres, kilometres or statute miles, CAVOK and "1" of "1 1/2SM" left out.
bool isVisibility(QStringView group);

/// Amount and height of a cloud layer, "///" where one was not reported.
bool isCloudLayer(QStringView group);

/// Temperature and dew point, either of which may be missing.
bool isTemperatures(QStringView group);

/// The halves of such a group; a missing one is empty or of slashes.
struct TemperatureGroup {
  QStringView air;
  QStringView dewPoint;
};
TemperatureGroup temperatureGroup(QStringView group);

/// An altimeter setting: A2992, Q1013, Q////.
bool isAltimeter(QStringView group);

/// A word that begins what stands behind the observation: a trend or the remarks.
bool endsObservation(QStringView group);

/// Letters of the compass, two of them joined by "-" where they are a range: NE, N-E, SSW.
bool isDirection(QStringView group);

} // namespace soran
