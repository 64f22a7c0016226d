// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_phrases.h"

#include "reports/checked_text.h"

namespace soran {

namespace {

QStringView unitWord(QStringView unit) {
  if (unit.isEmpty())
    return {};
  if (unit == u"MPS")
    return u"メートル毎秒";
  return unit == u"KMH" ? QStringView(u"キロメートル毎時") : QStringView(u"ノット");
}

void writeSpeed(QString& text, QStringView figures, QStringView unit) {
  if (figures.startsWith(u'P'))
    writeAll(text, Plain{leadingNumber(figures.sliced(1)) + 1}, unitWord(unit), u"以上");
  else
    writeAll(text, Plain{leadingNumber(figures)}, unitWord(unit));
}

bool isOutside(QStringView figures) {
  return figures.startsWith(u'M') || figures.startsWith(u'P');
}

void writeRange(QString& text, QStringView figures, QStringView unit) {
  writeAll(text, Plain{leadingNumber(isOutside(figures) ? figures.sliced(1) : figures)}, unit);
  if (isOutside(figures))
    write(text, figures.startsWith(u'M') ? u"(測定範囲の下限)" : u"(測定範囲の上限)");
}

/// The end of a sentence that goes on from "て".
QStringView tendencyBehind(QChar tendency) {
  switch (tendency.unicode()) {
  case u'U':
    return u"おり、さらに上昇中";
  case u'D':
    return u"おり、さらに下降中";
  case u'N':
    return u"おり、変化なし";
  default:
    return u"おり、変化傾向は不明";
  }
}

void writeVariation(QString& text, const RunwayRangeGroup& range, QStringView unit) {
  writeRange(text, range.least, unit);
  write(text, u"から");
  writeRange(text, range.greatest, unit);
  if (range.tendency == u'U')
    write(text, u"の間を変動しながら上昇中");
  else if (range.tendency == u'D')
    write(text, u"の間を変動しながら下降中");
  else
    writeAll(text, u"の間を変動して", tendencyBehind(range.tendency));
}

} // namespace

QString nameOfStation(QStringView code, const SettingsRecord& settings, const Dictionaries& dictionaries) {
  if (readsByCode(settings))
    return dictionaries.stationName(code).value_or(QString());
  return dictionaries.airportName(code).value_or(QStringView()).toString();
}

QString notReported(QStringView what) {
  return what.toString().append(u"の通報なし");
}

QString windByCode(const WindGroup& wind) {
  QString text;
  const bool still = wind.speed.startsWith(u'/');
  if (still && wind.direction == u"///")
    return notReported(u"風");
  if (wind.direction == u"000" && wind.speed == u"00" && wind.gust.isEmpty() && wind.unit == u"KT")
    return QStringLiteral("風速 0.4ノット以下の静穏な風");
  const bool variable = wind.direction == u"VRB";
  if (variable)
    write(text, u"風向が特定できない ");
  else if (wind.direction == u"///")
    writeAll(text, notReported(u"風向"), u" ");
  else
    writeAll(text, wind.direction, u"°方向から ");
  if (still)
    write(text, notReported(u"風速"));
  else
    writeSpeed(text, wind.speed, wind.unit);
  if (variable && !still)
    write(text, u"の風");
  if (!wind.gust.isEmpty() && !wind.gust.startsWith(u'/')) {
    write(text, u" / 最大瞬間風速 ");
    writeSpeed(text, wind.gust, wind.unit);
  }
  if (wind.unit.isEmpty())
    writeAll(text, u" (", notReported(u"単位"), u")");
  return text;
}

QString runwayRangeByCode(const RunwayRangeGroup& range) {
  const QStringView unit = range.feet ? u"フィート" : u"メートル";
  QString text;
  writeAll(text, u"滑走路", range.runway, u"のRVRは、");
  if (range.least.startsWith(u'/')) {
    write(text, u"欠測している");
  } else if (!range.greatest.isEmpty()) {
    writeVariation(text, range, unit);
  } else if (isOutside(range.least)) {
    writeRange(text, range.least, unit);
    writeAll(text, range.least.startsWith(u'M') ? u"を下回って" : u"を超えて",
             tendencyBehind(range.tendency));
  } else {
    writeRange(text, range.least, unit);
    // The words behind a value alone are those behind "て" without its auxiliary.
    writeAll(text, u"で、", tendencyBehind(range.tendency).sliced(QStringView(u"おり、").size()));
  }
  return text;
}

QString degreesByCode(QStringView value, QStringView name) {
  if (value.isEmpty() || value.startsWith(u'/') || value.startsWith(u'X'))
    return notReported(name);
  QString text;
  const bool below = value.startsWith(u'M');
  writeAll(text, below ? u"マイナス " : u"", Plain{leadingNumber(below ? value.sliced(1) : value)}, u"℃");
  return text;
}

QString seaLevelPressureByCode(QStringView group) {
  constexpr double lowestOfNineHundreds = 500;
  QString text;
  if (!hasShape(group, {u"SLP###"}))
    return text;
  const QStringView figures = group.last(3);
  writeAll(text, leadingNumber(figures) >= lowestOfNineHundreds ? u"9" : u"10", figures.first(2), u".",
           figures.last(1));
  return text;
}

QString altimeterByCode(QStringView group) {
  constexpr double perHundredthOfAnInch = 0.338639;
  QString text;
  writeAll(text, mid1(group, 2, 2), u".", mid1(group, 4, 2), u"インチ水銀柱 (",
           QString::number(leadingNumber(mid1(group, 2)) * perHundredthOfAnInch, 'f', 1), u"ヘクトパスカル)");
  return text;
}

} // namespace soran
