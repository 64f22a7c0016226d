// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch_desk.h"

#include "base/text.h"
#include "cli/plain_values.h"
#include "desk/report_age.h"

#include <QHash>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

const QStringList limitNames = {u"vis_m"_s, u"ceiling_ft"_s, u"wind_kt"_s, u"gust_kt"_s};

QDateTime timeField(BatchJob& job, const QString& name) {
  return minuteOf(job.fields.text(name), name);
}

bool holds(const ForecastSlice& slice, const QDateTime& at) {
  return slice.from <= at && at < slice.to;
}

/// All that the slices tell of one time, each with what it leaves out taken from what prevails.
struct TimeOfTaf {
  ElementValues prevailing = {};
  std::vector<const ForecastSlice*> becoming = {};
  std::vector<const ForecastSlice*> temporary = {};

  TimeOfTaf(const Taf& taf, const QDateTime& at) {
    for (const ForecastSlice& slice : taf.slices) {
      if (!holds(slice, at))
        continue;
      if (slice.isTemporary())
        temporary.push_back(&slice);
      else if (slice.kind == SliceKind::Becoming)
        becoming.push_back(&slice);
      else
        prevailing = slice.values;
    }
  }
  /// What the slice's own words tell over what prevails.
  ElementValues filled(QStringView text, const ForecastSlice& slice) const {
    return mergedOver(prevailing, readElements(text, slice.words));
  }
};

/// The METAR of a text; a TAF is none, nor is that of another station than `code`, where one is named.
std::optional<MetarReading> metarOf(const QString& text, const QString& code, const QDateTime& now) {
  const std::optional<Taf> taf = readTaf(text, now);
  std::optional<MetarReading> metar = readMetar(text, now);
  const bool isForecast = taf && taf->from.isValid();
  const bool isOfAnother = metar && metar->station && !code.isEmpty() && metar->station->in(text) != code;
  return isForecast || isOfAnother ? std::nullopt : metar;
}

/// The same of a TAF.
std::optional<Taf> tafOf(const QString& text, const QString& code, const QDateTime& now) {
  std::optional<Taf> taf = readTaf(text, now);
  return taf && taf->station && taf->station->in(text) != code ? std::nullopt : taf;
}

/// The greater of two fields takes the place of the first; a null is no value.
bool isGreater(const QJsonValue& value, const QJsonValue& than) {
  return value.isDouble() && (!than.isDouble() || value.toDouble() > than.toDouble());
}

bool isLess(const QJsonValue& value, const QJsonValue& than) {
  return value.isDouble() && (!than.isDouble() || value.toDouble() < than.toDouble());
}

/// The elements as they count for the worst, where a ceiling without height is one of 0 feet.
QJsonObject gravestElements(const ElementValues& values, QStringView text) {
  QJsonObject object = plainElements(values, text);
  if (values.ceiling() && values.ceiling()->isHeightMissing)
    object[u"ceiling_ft"_s] = 0;
  return object;
}

/// Takes of each element the worse: the stronger wind, the lower visibility and ceiling, all weather.
void takeWorse(QJsonObject& worst, const QJsonObject& other) {
  const auto take = [&](const QString& name) { worst[name] = other[name]; };
  if (isGreater(other[u"wind_kt"_s], worst[u"wind_kt"_s])) {
    take(u"wind_dir"_s);
    take(u"wind_kt"_s);
  }
  if (isGreater(other[u"gust_kt"_s], worst[u"gust_kt"_s]))
    take(u"gust_kt"_s);
  for (const QString& name : {u"vis_m"_s, u"ceiling_ft"_s}) {
    if (isLess(other[name], worst[name]))
      take(name);
  }
  QJsonArray weather = worst[u"weather"_s].toArray();
  for (const QJsonValue group : other[u"weather"_s].toArray()) {
    if (!weather.contains(group))
      weather.append(group);
  }
  worst[u"weather"_s] = weather;
}

QString textOrEmpty(const QJsonObject& row, const QString& name) {
  const QJsonValue value = row[name];
  if (!value.isString() && !value.isNull() && !value.isUndefined())
    throw InputError(u"\"" + name + u"\" of a report is not a text");
  return value.toString();
}

/// The limits of an object, in the order of their names; null is none.
QList<PlainLimit> limitsIn(const QJsonObject& object) {
  for (const QString& name : object.keys()) {
    if (!limitNames.contains(name))
      throw InputError(u"unknown limit \"" + name + u'"');
  }
  QList<PlainLimit> limits;
  for (const QString& name : limitNames) {
    if (const QJsonValue value = object[name]; !value.isNull() && !value.isUndefined())
      limits.append({name, wholeNumber(value, name)});
  }
  return limits;
}

/// The limits of a board: the same for all airports, or by their codes.
class BoardLimits {
 public:
  explicit BoardLimits(const QJsonObject& object) {
    isByCode_ = std::ranges::any_of(object, [](const QJsonValue& value) { return value.isObject(); });
    if (!isByCode_)
      forAll_ = limitsIn(object);
    for (auto i = object.constBegin(); isByCode_ && i != object.constEnd(); ++i) {
      const QString code = asciiUpper(i.key());
      if (!isCodeList(code) || code.contains(u' '))
        throw InputError(u"\"" + i.key() + u"\" is not the code of an airport");
      if (!i.value().isObject())
        throw InputError(u"the limits of \"" + i.key() + u"\" are not an object");
      byCode_.insert(code, limitsIn(i.value().toObject()));
    }
  }
  QList<PlainLimit> of(const QString& code) const {
    return isByCode_ ? byCode_.value(asciiUpper(code)) : forAll_;
  }

 private:
  bool isByCode_ = false;
  QList<PlainLimit> forAll_;
  QHash<QString, QList<PlainLimit>> byCode_;
};

/// When the TAF first lies beyond a limit from `now` on, and of which elements; null where it does not.
QJsonValue firstHits(const Taf& taf, const QList<PlainLimit>& limits, const QDateTime& now) {
  QDateTime first;
  for (const ForecastSlice& slice : taf.slices) {
    const QDateTime begins = std::max(slice.from, now);
    if (slice.to > now && !hitsOf(slice.values, limits).isEmpty() && (!first.isValid() || begins < first))
      first = begins;
  }
  if (!first.isValid())
    return {};
  QJsonArray hits;
  for (const PlainLimit& limit : limits) {
    const auto isBeyond = [&](const ForecastSlice& slice) {
      return holds(slice, first) && !hitsOf(slice.values, {limit}).isEmpty();
    };
    if (std::ranges::any_of(taf.slices, isBeyond))
      hits.append(limit.name);
  }
  return QJsonObject{{u"at"_s, minuteJson(first)}, {u"hits"_s, hits}};
}

/// What of an airport is known beside its limits, in words, the worst first.
constexpr QStringView boardStates[] = {u"below", u"near", u"overdue", u"none", u"ok"};

QStringView stateOf(const std::optional<MetarReading>& metar, const QList<PlainLimit>& limits,
                    const QDateTime& now) {
  const bool isKnown = metar && (metar->values.tellsVisibility() || metar->values.tellsCeiling()) &&
                       knowsAll(metar->values, limits);
  if (metar && !hitsOf(metar->values, limits).isEmpty())
    return u"below";
  if (metar && freshnessOf(std::array{metar->observed}, {}, now) == Freshness::Overdue)
    return u"overdue";
  if (!isKnown)
    return u"none";
  return isNear(metar->values, limits) ? u"near" : u"ok";
}

/// Why a TAF cannot be relied on; empty where it can.
QString tafStateOf(const std::optional<Taf>& taf, const QDateTime& now) {
  if (taf && taf->state != Taf::State::InForce)
    return taf->state == Taf::State::Cancelled ? u"cancelled"_s : u"missing"_s;
  if (taf && taf->to <= now)
    return u"expired"_s;
  return taf && taf->unread.empty() && !taf->slices.empty() ? QString() : u"unread"_s;
}

QJsonObject rowOf(const QJsonObject& reports, const BoardLimits& boardLimits, const QDateTime& now) {
  for (const QString& name : reports.keys()) {
    if (!QStringList({u"code"_s, u"metar"_s, u"taf"_s}).contains(name))
      throw InputError(u"unknown field \"" + name + u"\" of a report");
  }
  const QString code = textOrEmpty(reports, u"code"_s);
  if (code.isEmpty())
    throw InputError(u"a report without \"code\""_s);
  const QList<PlainLimit> limits = boardLimits.of(code);
  const QString text = textOrEmpty(reports, u"metar"_s);
  const std::optional<MetarReading> metar = metarOf(text, code, now);
  const QString tafText = textOrEmpty(reports, u"taf"_s);
  const std::optional<Taf> taf = tafOf(tafText, code, now);
  QJsonObject row{
      {u"code"_s, code},
      {u"elements"_s, metar ? QJsonValue(plainReport(*metar, text)) : QJsonValue()},
      {u"age_min"_s, metar ? QJsonValue(metar->observed.secsTo(now) / 60) : QJsonValue()},
      {u"state"_s, stateOf(metar, limits, now).toString()},
      {u"hits"_s, QJsonArray::fromStringList(metar ? hitsOf(metar->values, limits) : QStringList())},
      {u"taf_first"_s, taf ? firstHits(*taf, limits, now) : QJsonValue()}};
  if (const QString state = tafText.isEmpty() ? QString() : tafStateOf(taf, now); !state.isEmpty())
    row[u"taf_state"_s] = state;
  return row;
}

} // namespace

QJsonValue elementsOf(BatchJob& job) {
  const QString text = job.fields.text(u"text"_s);
  const QDateTime now = timeField(job, u"now"_s);
  job.fields.finish();
  const std::optional<MetarReading> metar = metarOf(text, QString(), now);
  if (!metar)
    throw InputError(u"field \"text\" is no METAR or SPECI"_s);
  return plainReport(*metar, text);
}

QJsonValue plainTafAt(BatchJob& job) {
  const QString text = job.fields.text(u"text"_s);
  const QDateTime at = timeField(job, u"at"_s);
  const QDateTime now = timeField(job, u"now"_s);
  job.fields.finish();
  const std::optional<Taf> taf = readTaf(text, now);
  if (!taf)
    throw InputError(u"field \"text\" is no TAF"_s);
  if (taf->state != Taf::State::InForce)
    throw InputError(u"the TAF is not in force"_s);
  if (at < taf->from || at >= taf->to)
    throw InputError(u"\"at\" lies outside the validity of the TAF"_s);
  const TimeOfTaf time(*taf, at);
  const QJsonObject prevailing = plainElements(time.prevailing, text);
  QJsonObject worst = gravestElements(time.prevailing, text);
  QJsonArray becoming;
  for (const ForecastSlice* slice : time.becoming) {
    const ElementValues values = time.filled(text, *slice);
    becoming.append(plainElements(values, text));
    takeWorse(worst, gravestElements(values, text));
  }
  QJsonArray temporary;
  for (const ForecastSlice* slice : time.temporary) {
    const ElementValues values = time.filled(text, *slice);
    QJsonObject object = plainElements(values, text);
    takeWorse(worst, gravestElements(values, text));
    object[u"from"_s] = minuteJson(slice->from);
    object[u"to"_s] = minuteJson(slice->to);
    object[u"prob"_s] = slice->probability > 0 ? QJsonValue(slice->probability) : QJsonValue();
    temporary.append(object);
  }
  QJsonObject result{{u"prevailing"_s, prevailing},
                     {u"becoming"_s, becoming},
                     {u"temporary"_s, temporary},
                     {u"worst"_s, worst}};
  if (!taf->unread.empty())
    result[u"unread"_s] = textsOf(taf->unread, text);
  return result;
}

QJsonValue plainBoard(BatchJob& job) {
  const QJsonArray reports = job.fields.array(u"reports"_s);
  const QDateTime now = timeField(job, u"now"_s);
  const BoardLimits limits(job.fields.object(u"limits"_s));
  job.fields.finish();
  std::vector<QJsonObject> rows;
  for (const QJsonValue report : reports) {
    if (!report.isObject())
      throw InputError(u"a row of \"reports\" is not an object"_s);
    rows.push_back(rowOf(report.toObject(), limits, now));
  }
  std::ranges::stable_sort(rows, {}, [](const QJsonObject& row) {
    return std::ranges::find(boardStates, row[u"state"_s].toString()) - std::begin(boardStates);
  });
  QJsonArray array;
  for (const QJsonObject& row : rows)
    array.append(row);
  return array;
}

} // namespace soran
