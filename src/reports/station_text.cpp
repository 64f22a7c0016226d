// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/station_text.h"

#include "base/foreign_text.h"
#include "base/text.h"
#include "base/utc.h"

#include <QTimeZone>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype codeLength = 4;

bool isBlank(QChar c) {
  return c == u' ' || c == u'\n' || c == u'\r' || c == u'\t';
}

QStringView withoutLeadingBlanks(QStringView text) {
  // The second form is that of bytes which were no UTF-8 as a whole.
  constexpr QStringView marks[] = {u"\uFEFF", u"\u00EF\u00BB\u00BF"};
  for (const QStringView mark : marks) {
    if (text.startsWith(mark))
      text = text.sliced(mark.size());
  }
  return text.sliced(std::find_if_not(text.begin(), text.end(), isBlank) - text.begin());
}

bool isWordCharacter(QChar c) {
  return isAsciiLetter(c) || isAsciiDigit(c);
}

bool holdsWord(QStringView text, QStringView word) {
  for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
    const qsizetype end = at + word.size();
    if ((at == 0 || !isWordCharacter(text[at - 1])) && (end == text.size() || !isWordCharacter(text[end])))
      return true;
  }
  return false;
}

bool isCode(QStringView group) {
  const auto isCapitalOrDigit = [](QChar c) { return (c >= u'A' && c <= u'Z') || isAsciiDigit(c); };
  return group.size() == codeLength && std::all_of(group.begin(), group.end(), isCapitalOrDigit) &&
         !isAsciiDigit(group[0]);
}

bool isDayAndTime(QStringView group) {
  constexpr qsizetype digits = 6;
  return group.size() == digits + 1 && group[digits] == u'Z' &&
         std::all_of(group.begin(), group.begin() + digits, isAsciiDigit);
}

/// The first code that stands ahead of a day and time.
QStringView codeAheadOfTime(QStringView text) {
  QStringView former;
  for (auto at = text.begin(); at != text.end();) {
    const auto begin = std::find_if_not(at, text.end(), isBlank);
    const auto end = std::find_if(begin, text.end(), isBlank);
    const QStringView group = text.sliced(begin - text.begin(), end - begin);
    if (isDayAndTime(group) && isCode(former))
      return former;
    former = group;
    at = end;
  }
  return {};
}

} // namespace

QDateTime timeOfWriting(QStringView text) {
  const QDateTime written = QDateTime::fromString(text.left(16).toString(), u"yyyy/MM/dd HH:mm"_s);
  return inUtc(written.date(), written.time());
}

StationText readStationText(const StationCode& asked, QStringView body) {
  using enum StationText::Kind;
  if (body.startsWith(u'<'))
    return {Page, body.toString()};
  const QStringView text = withoutLeadingBlanks(body);
  if (text.startsWith(u'<'))
    return {};
  const QString code = asciiUpper(asked.text());
  const QStringView named = codeAheadOfTime(text);
  if (!named.isEmpty() && named != code)
    return {OfAnother, {}, named.toString()};
  if (code.isEmpty() || !holdsWord(text, code))
    return {};
  StationText report{Report, cleaned(text)};
  if (!report.text.endsWith(u'\n'))
    report.text += u'\n';
  report.time = timeOfWriting(report.text);
  return report;
}

} // namespace soran
