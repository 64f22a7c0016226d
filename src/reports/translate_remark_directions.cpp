// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_walk.h"
#include "reports/group_shapes.h"

#include <algorithm>

namespace soran {

namespace {

struct Phenomenon {
  QStringView group;
  QStringView phrase;
};

constexpr std::array<Phenomenon, 5> phenomena{{
    {u"LIGHTNING", u"稲光を観測"},
    {u"TCU", u"塔状積雲を観測"},
    {u"CB", u"積乱雲を観測"},
    {u"FG", u"霧を観測"},
    {u"RA", u"雨を観測"},
}};

constexpr QStringView from = u"から";

/// The Japanese words of a direction such as N-E. An unknown letter repeats the word before it.
QString DirectionText(QStringView group) {
  QString text;
  QStringView word;
  for (const QChar letter : group) {
    switch (letter.unicode()) {
    case u'E':
      word = u"東";
      break;
    case u'W':
      word = u"西";
      break;
    case u'S':
      word = u"南";
      break;
    case u'N':
      word = u"北";
      break;
    case u'-':
      word = from;
      break;
    default:
      break;
    }
    text.append(word);
  }
  return text;
}

/// The direction two groups on, the one between being a word such as DSNT or TO.
QString directionAhead(ReportWalk& walk) {
  walk.groups.NextToken();
  walk.groups.NextToken();
  QString direction = DirectionText(walk.groups.token());
  // What was read as a direction is no group any more.
  walk.groups.dropToken();
  return direction;
}

void tellPhenomenon(ReportWalk& walk) {
  const auto* const seen = std::ranges::find(phenomena, walk.groups.token(), &Phenomenon::group);
  if (seen == phenomena.end())
    return;
  const QString direction = directionAhead(walk);
  walk.line(u"空港の", direction, direction.contains(from) ? u"方向にかけて" : u"方向に", seen->phrase);
}

void tellVisibility(ReportWalk& walk) {
  if (walk.groups.token() != u"VIS")
    return;
  const QString direction = directionAhead(walk);
  walk.groups.NextToken();
  const QStringView value = walk.groups.token();
  walk.line(u"空港の", direction, u"方向", direction.contains(from) ? u"にかけての" : u"の", u"視程は ",
            Plain{leadingNumber(value)}, value.contains(u"KM") ? u"キロメートル" : u"メートル");
}

} // namespace

void tellDirections(ReportWalk& walk) {
  tellPhenomenon(walk);
  tellVisibility(walk);
}

bool tellPhenomenonByCode(CodeWalk& code) {
  const auto* const seen = std::ranges::find(phenomena, code.peek(), &Phenomenon::group);
  // A word such as DSNT may stand between.
  const size_t place = isDirection(code.peek(1)) ? 1 : 2;
  if (seen == phenomena.end() || !isDirection(code.peek(place)))
    return false;
  const QString direction = DirectionText(code.peek(place));
  code.walk.line(u"空港の", direction, direction.contains(from) ? u"方向にかけて" : u"方向に", seen->phrase);
  code.take(place + 1);
  return true;
}

bool tellVisibilityByCode(CodeWalk& code) {
  const size_t place = isDirection(code.peek(1)) ? 1 : 2;
  const QStringView value = code.peek(place + 1);
  if (code.peek() != u"VIS" || !isDirection(code.peek(place)) ||
      !hasShape(value, {u"####", u"###", u"#KM", u"##KM"}))
    return false;
  const QString direction = DirectionText(code.peek(place));
  code.walk.line(u"空港の", direction, u"方向", direction.contains(from) ? u"にかけての" : u"の", u"視程は ",
                 Plain{leadingNumber(value)}, value.endsWith(u"KM") ? u"キロメートル" : u"メートル");
  code.take(place + 2);
  return true;
}

} // namespace soran
