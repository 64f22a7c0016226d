// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/airport_limits.h"

#include "base/text.h"
#include "reports/weather_words.h"
#include "store/json_fields.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

using Number = std::optional<int> AirportLimits::*;

struct LimitColumnSpec {
  QStringView name;
  QStringView heading; ///< on the screen
  QStringView unit;
  Number number; ///< null where the column has no number that may be missing
  int most;      ///< of the number, the least being 1
};

// In the order of LimitColumn.
constexpr LimitColumnSpec limitColumns[] = {
    {u"ICAOコード", u"AP", u"", nullptr, 0},
    {u"条件", u"COND", u"", nullptr, 3},
    {u"視程", u"VIS", u"m", &AirportLimits::visibility, 9999},
    {u"RVR", u"RVR", u"m", &AirportLimits::runwayRange, 9999},
    {u"雲高", u"CIG", u"ft", &AirportLimits::ceiling, 30'000},
    {u"風速", u"WIND", u"kt", &AirportLimits::wind, 199},
    {u"突風", u"GUST", u"kt", &AirportLimits::gust, 199},
    {u"横風", u"XWIND", u"kt", &AirportLimits::crosswind, 199},
    {u"天気", u"WX", u"", nullptr, 0},
};
static_assert(std::size(limitColumns) == limitColumnCount);

const LimitColumnSpec& specOf(LimitColumn column) {
  return limitColumns[size_t(column)];
}

bool isCodeOfLimits(const QString& text) {
  const auto isLetter = [](QChar c) { return c >= u'A' && c <= u'Z'; };
  return text == allAirports ||
         (text.size() == 4 && isLetter(text.front()) &&
          std::ranges::all_of(text, [&](QChar c) { return isLetter(c) || isAsciiDigit(c); }));
}

bool isNumberUpTo(const QString& text, int most) {
  constexpr qsizetype mostFigures = 5;
  return !text.isEmpty() && text.size() <= mostFigures && std::ranges::all_of(text, isAsciiDigit) &&
         text.toInt() >= 1 && text.toInt() <= most;
}

bool areWeatherWords(const QString& text) {
  return std::ranges::all_of(text.split(u' ', Qt::SkipEmptyParts), isWeatherGroup);
}

/// The text that a cell would hold. Throws InputError for another value than a whole number or a text.
QString cellOf(const QJsonValue& value, LimitColumn column) {
  const bool isText = column == LimitColumn::Code || column == LimitColumn::Weather;
  if (value.isNull() || value.isUndefined())
    return {};
  if (isText != value.isString())
    throw InputError(u'"' + nameOf(column) + u"\" is not a " + (isText ? u"text" : u"number"));
  return isText ? asciiUpper(value.toString()).simplified()
                : QString::number(wholeNumber(value, nameOf(column)));
}

AirportLimits rowOf(const QJsonObject& object) {
  Fields fields(object);
  QStringList cells;
  for (int i = 0; i < limitColumnCount; ++i) {
    const auto column = LimitColumn(i);
    const QString name = nameOf(column);
    cells += fields.has(name) ? cellOf(fields.any(name), column) : QString();
    if (!refusalOf(column, cells.last()).isEmpty())
      throw InputError(u"not a limit of an airport: \""_s + name + u"\" " + cells.last());
  }
  fields.finish();
  return rowOfCells(cells);
}

} // namespace

QString nameOf(LimitColumn column) {
  return specOf(column).name.toString();
}

QString unitOf(LimitColumn column) {
  return specOf(column).unit.toString();
}

QStringList cellsOf(const AirportLimits& row) {
  QStringList cells;
  for (const LimitColumnSpec& spec : limitColumns) {
    const std::optional<int> number = spec.number ? row.*spec.number : std::nullopt;
    cells += number ? QString::number(*number) : QString();
  }
  cells[int(LimitColumn::Code)] = row.code;
  cells[int(LimitColumn::Condition)] = QString::number(row.condition);
  cells[int(LimitColumn::Weather)] = row.weather;
  return cells;
}

QString refusalOf(LimitColumn column, const QString& text) {
  if (column == LimitColumn::Code)
    return isCodeOfLimits(text) ? QString()
                                : u"飛行場略号（ICAO 4 Letter）または ALL を入力してください　　"_s;
  if (column == LimitColumn::Weather)
    return areWeatherWords(text) ? QString()
                                 : u"天気は TS FZRA +SN のように略号を空白で区切って入力してください　　"_s;
  const int most = specOf(column).most;
  if (isNumberUpTo(text, most) || (text.isEmpty() && column != LimitColumn::Condition))
    return {};
  return nameOf(column) + u" は 1 から " + QString::number(most) + u" の数で入力してください　　";
}

AirportLimits rowOfCells(const QStringList& cells) {
  AirportLimits row{.code = cells[int(LimitColumn::Code)],
                    .condition = cells[int(LimitColumn::Condition)].toInt(),
                    .weather = cells[int(LimitColumn::Weather)]};
  for (int i = 0; i < limitColumnCount; ++i) {
    if (const Number number = limitColumns[i].number; number && !cells[i].isEmpty())
      row.*number = cells[i].toInt();
  }
  return row;
}

QVariantList storedRow(const AirportLimits& row, int rank) {
  QVariantList values = {rank, row.code, row.condition};
  for (const LimitColumnSpec& spec : limitColumns) {
    if (spec.number)
      values += row.*spec.number ? QVariant(*(row.*spec.number)) : QVariant();
  }
  values += row.weather;
  return values;
}

QJsonObject limitsJson(const AirportLimits& row) {
  QJsonObject object{{nameOf(LimitColumn::Code), row.code}, {nameOf(LimitColumn::Condition), row.condition}};
  for (const LimitColumnSpec& spec : limitColumns) {
    if (spec.number && row.*spec.number)
      object.insert(spec.name, *(row.*spec.number));
  }
  if (!row.weather.isEmpty())
    object.insert(nameOf(LimitColumn::Weather), row.weather);
  return object;
}

QList<AirportLimits> airportLimitsOf(const QJsonArray& rows) {
  QList<AirportLimits> list;
  for (const auto& value : rows) {
    if (!value.isObject())
      throw InputError(u"a row of limits is not an object"_s);
    const AirportLimits row = rowOf(value.toObject());
    const bool isTaken = std::ranges::any_of(list, [&row](const AirportLimits& other) {
      return other.code == row.code && other.condition == row.condition;
    });
    if (isTaken)
      throw InputError(u"a second row of limits of "_s + row.code + u' ' + QString::number(row.condition));
    list += row;
  }
  return list;
}

QString limitsText(const QList<AirportLimits>& rows) {
  constexpr int width = 6;
  QStringList lines;
  const auto add = [&lines](const QStringList& cells) {
    QString line;
    for (const QString& cell : cells)
      line += (cell.isEmpty() ? u"-"_s : cell).leftJustified(width) + u' ';
    lines += line.trimmed();
  };
  QStringList headings;
  for (const LimitColumnSpec& spec : limitColumns)
    headings += spec.heading.toString();
  add(headings);
  for (const AirportLimits& row : rows)
    add(cellsOf(row));
  return lines.join(crlf.toString());
}

} // namespace soran
