// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/group_shapes.h"

#include "base/text.h"
#include "reports/group_scan.h"

#include <algorithm>

namespace soran {

namespace {

bool isOneOf(QStringView group, std::initializer_list<QStringView> words) {
  return std::ranges::find(words, group) != words.end();
}

QStringView orElse(QStringView found, QStringView other) {
  return found.isEmpty() ? other : found;
}

} // namespace

bool hasShape(QStringView group, std::initializer_list<QStringView> shapes) {
  return std::ranges::any_of(shapes, [group](QStringView shape) {
    return std::ranges::equal(group, shape,
                              [](QChar c, QChar s) { return s == u'#' ? isAsciiDigit(c) : c == s; });
  });
}

std::optional<WindGroup> windGroup(QStringView group, WindUnit unit) {
  Scan scan(group);
  WindGroup wind;
  wind.direction = orElse(scan.oneOf({u"VRB", u"///"}), scan.figures(3, 3));
  wind.speed = orElse(scan.oneOf({u"//"}), scan.figures(2, 3, u"P"));
  if (scan.word(u"G")) {
    wind.gust = orElse(scan.oneOf({u"//"}), scan.figures(2, 3, u"P"));
    if (wind.gust.isEmpty())
      return std::nullopt;
  }
  wind.unit = scan.oneOf({u"KT", u"MPS", u"KMH"});
  if (wind.direction.isEmpty() || wind.speed.isEmpty() || !scan.atEnd())
    return std::nullopt;
  if (wind.unit.isEmpty() && unit == WindUnit::Stands)
    return std::nullopt;
  return wind;
}

std::optional<RunwayRangeGroup> runwayRangeGroup(QStringView group) {
  const qsizetype slash = group.indexOf(u'/');
  if (slash < 0 || !hasShape(group.first(slash), {u"R##", u"R##L", u"R##C", u"R##R"}))
    return std::nullopt;
  Scan scan(group.sliced(slash + 1));
  RunwayRangeGroup range;
  range.runway = group.first(slash).sliced(1);
  range.least = orElse(scan.oneOf({u"////"}), scan.figures(4, 4, u"MP"));
  if (scan.word(u"V")) {
    range.greatest = scan.figures(4, 4, u"MP");
    if (range.greatest.isEmpty())
      return std::nullopt;
  }
  range.feet = scan.word(u"FT");
  scan.word(u"/");
  if (const QStringView tendency = scan.oneOf({u"U", u"D", u"N", u"/"}); !tendency.isEmpty())
    range.tendency = tendency == u"/" ? QChar() : tendency.front();
  if (range.least.isEmpty() || !scan.atEnd())
    return std::nullopt;
  return range;
}

bool isVisibility(QStringView group) {
  if (hasShape(group, {u"####", u"####NDV", u"////", u"////SM", u"#KM", u"##KM"}))
    return true;
  if (group.size() > 4 && hasShape(group.first(4), {u"####"}) && isDirection(group.sliced(4)))
    return true;
  const bool limit = group.startsWith(u'M') || group.startsWith(u'P');
  return hasShape(limit ? group.sliced(1) : group, {u"#SM", u"##SM", u"#/#SM", u"#/##SM"});
}

bool isCloudLayer(QStringView group) {
  Scan scan(group);
  if (scan.oneOf({u"FEW", u"SCT", u"BKN", u"OVC", u"///"}).isEmpty() ||
      orElse(scan.oneOf({u"///"}), scan.figures(3, 3)).isEmpty())
    return false;
  scan.oneOf({u"CB", u"TCU", u"///"});
  return scan.atEnd();
}

bool isTemperatures(QStringView group) {
  Scan scan(group);
  const auto degrees = [&scan] { return orElse(scan.oneOf({u"//", u"XX"}), scan.figures(2, 2, u"M")); };
  if (degrees().isEmpty() || !scan.word(u"/"))
    return false;
  degrees();
  return scan.atEnd();
}

TemperatureGroup temperatureGroup(QStringView group) {
  // The slashes of a missing value are two, ahead of the one between the values.
  const qsizetype slash = group.startsWith(u'/') ? 2 : group.indexOf(u'/');
  return {group.first(slash), group.sliced(slash + 1)};
}

bool isAltimeter(QStringView group) {
  return hasShape(group, {u"A####", u"A////", u"Q####", u"Q////"});
}

bool endsObservation(QStringView group) {
  return isOneOf(group, {u"NOSIG", u"BECMG", u"TEMPO", u"RMK"});
}

bool isDirection(QStringView group) {
  constexpr QStringView letters = u"NESW";
  bool behindLetter = false;
  for (const QChar c : group) {
    if (c != u'-' && !letters.contains(c))
      return false;
    if (c == u'-' && !behindLetter)
      return false;
    behindLetter = c != u'-';
  }
  return behindLetter;
}

} // namespace soran
