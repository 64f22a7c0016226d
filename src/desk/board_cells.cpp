// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/board_cells.h"

#include "base/text.h"

#include <cmath>

namespace soran {

using namespace Qt::StringLiterals;

QString stateWord(const BoardRow& row) {
  QString forecast = row.outlookLevel() > 0 ? u'F' + QString::number(row.outlookLevel()) : QString();
  if (row.level() > 0) {
    const QString now = u'L' + QString::number(row.level());
    return row.outlookLevel() > row.level() ? now + u'/' + forecast : now;
  }
  if (row.freshness == Freshness::Overdue)
    return forecast.isEmpty() ? u"OVERDUE"_s : u"OVERDUE/" + forecast;
  if (row.hasNoData())
    return forecast.isEmpty() ? u"NO DATA"_s : u"NO DATA/" + forecast;
  if (!forecast.isEmpty())
    return forecast;
  if (row.taf == TafState::Expired)
    return u"EXPIRED"_s;
  if (row.tafIsSilent())
    return u"TAF?"_s;
  if (row.freshness == Freshness::Closed)
    return u"CLOSED"_s;
  const bool isKnown = row.values.tellsVisibility() && row.values.tellsCeiling() && row.values.unread.empty();
  return isKnown && !row.lacksLimited ? u"OK"_s : u"PART"_s;
}

QString alarmWord(const Alarm& alarm) {
  if (alarm.muted)
    return u"MUTED"_s;
  switch (alarm.state) {
  case AlarmState::Ringing:
    return u"RING"_s;
  case AlarmState::Acknowledged:
    return u"ACK"_s;
  case AlarmState::Quiet:
    break;
  }
  return {};
}

namespace cell {

namespace {

QString reported(const BoardRow& row, const Words& words) {
  return words.in(row.metar).toString();
}

QString arrow(double before, double now) {
  return now > before ? u"↑"_s : u"↓"_s;
}

template <class Element, class Value>
void addChange(QStringList& changes, QStringView name, const std::optional<Element>& before,
               const std::optional<Element>& now, Value value) {
  if (!before || !now || value(*before) == value(*now))
    return;
  changes.append(name + arrow(value(*before), value(*now)));
}

/// Metres that a report tells; those that only say how far at least are all alike.
std::optional<int> metres(const ElementValues& values) {
  constexpr int unlimited = 9999;
  if (values.visibility && values.visibility->bound == Bound::Above)
    return unlimited;
  const std::optional<int> told = values.visibilityMetres();
  return told ? std::optional(std::min(*told, unlimited)) : std::nullopt;
}

/// Feet; a sky without a ceiling lies above every height that can be reported, of which there are three
/// figures of hundreds. Nothing where a height is missing.
std::optional<int> feet(const ElementValues& values) {
  constexpr int aboveAll = 100'000;
  const Ceiling* ceiling = values.ceiling();
  if (!values.tellsCeiling())
    return std::nullopt;
  return ceiling ? ceiling->feet : aboveAll;
}

/// As the field reads it: the hectopascals that are reached.
double shownPressure(const Pressure& pressure) {
  return std::floor(pressure.hectopascals);
}

/// Why a TAF tells nothing, where it does not.
QString tafWord(TafState state) {
  switch (state) {
  case TafState::Expired:
    return u"EXPIRED"_s;
  case TafState::Cancelled:
    return u"CNL"_s;
  case TafState::Missing:
    return u"NIL"_s;
  case TafState::Unread:
    return u"UNREAD"_s;
  case TafState::None:
  case TafState::InForce:
    break;
  }
  return {};
}

std::optional<double> speed(const ElementValues& values) {
  if (!values.wind || !values.wind->speed)
    return std::nullopt;
  const Wind& wind = *values.wind;
  return inKnots(wind.gust ? *wind.gust : *wind.speed, wind.unit);
}

} // namespace

QString state(const BoardRow& row, const QDateTime&) {
  return stateWord(row);
}

QString alarm(const BoardRow& row, const QDateTime&) {
  return alarmWord(row.alarm);
}

QString code(const BoardRow& row, const QDateTime&) {
  return row.code.text();
}

QString name(const BoardRow& row, const QDateTime&) {
  return row.name;
}

QString report(const BoardRow& row, const QDateTime&) {
  if (!row.time.isValid())
    return {};
  return (row.isSpecial ? u"SPECI "_s : u"METAR "_s) + row.time.toString(u"HHmm"_s) + u'Z';
}

QString age(const BoardRow& row, const QDateTime& now) {
  if (!row.time.isValid())
    return {};
  const qint64 minutes = std::max<qint64>(0, row.time.secsTo(now) / 60);
  QString age = QString::number(minutes) + u'm';
  if (minutes >= 60)
    age = QString::number(minutes / 60) + u'h' + twoDigits(int(minutes % 60));
  // What the column of the state does not tell.
  const QString state = stateWord(row);
  if (row.freshness == Freshness::Overdue && !state.startsWith(u"OVERDUE"))
    return age + u" OVERDUE";
  return row.freshness == Freshness::Closed && state != u"CLOSED" ? age + u" CLOSED" : age;
}

QString wind(const BoardRow& row, const QDateTime&) {
  return row.values.wind ? reported(row, row.values.wind->words) : QString();
}

QString runway(const BoardRow& row, const QDateTime&) {
  if (!row.runwayWind)
    return {};
  constexpr QStringView sides[] = {u"L", u"R", u"X"};
  const RunwayWind& wind = *row.runwayWind;
  const QString crosswind = sides[size_t(wind.side)] + QString::number(wholeKnots(wind.crosswind));
  if (wind.runway.isEmpty())
    return u"VRB " + crosswind;
  return wind.runway + u" H" + QString::number(std::lround(wind.headwind)) + u' ' + crosswind;
}

QString visibility(const BoardRow& row, const QDateTime&) {
  QStringList words;
  if (const Words* seen = row.values.visibilityWords())
    words.append(reported(row, *seen));
  if (row.values.directional)
    words.append(reported(row, *row.values.directional));
  if (const RunwayRange* least = row.values.leastRunwayRange())
    words.append(reported(row, least->words));
  return words.join(u' ');
}

QString weather(const BoardRow& row, const QDateTime&) {
  return joinedWords(row.metar, row.values.weather);
}

QString ceiling(const BoardRow& row, const QDateTime&) {
  const Words* words = row.values.ceilingWords();
  return words ? reported(row, *words) : QString();
}

QString temperatures(const BoardRow& row, const QDateTime&) {
  return row.values.temperatures ? reported(row, row.values.temperatures->words) : QString();
}

QString qnh(const BoardRow& row, const QDateTime&) {
  return row.values.pressure ? u'Q' + QString::number(shownPressure(*row.values.pressure)) : QString();
}

QString outlook(const BoardRow& row, int place) {
  const auto& outlook = row.outlook[size_t(place)];
  if (!outlook)
    return place + 1 == int(outlookHours.size()) ? tafWord(row.taf) : QString();
  return outlook->worst.element + u' ' + outlook->worst.words + u'/' + outlook->begins.toString(u"ddHH"_s) +
         u'Z';
}

QString sigmet(const BoardRow& row, const QDateTime&) {
  return row.sigmets.join(u' ');
}

QString source(const BoardRow& row, const QDateTime&) {
  return row.source;
}

QString changes(const BoardRow& row, const QDateTime&) {
  QStringList changes;
  const auto value = [](auto number) { return double(number); };
  addChange(changes, u"WIND", speed(row.before), speed(row.values), value);
  addChange(changes, u"VIS", metres(row.before), metres(row.values), value);
  addChange(changes, u"CIG", feet(row.before), feet(row.values), value);
  addChange(changes, u"QNH", row.before.pressure, row.values.pressure, shownPressure);
  return changes.join(u' ');
}

} // namespace cell

} // namespace soran
