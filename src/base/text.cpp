// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <limits>

namespace soran {

double leadingNumber(QStringView text) noexcept {
  qsizetype i = 0;
  while (i < text.size() && text[i] == u' ')
    ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
    negative = text[i++] == u'-';
  double value = 0;
  double divisor = 1;
  bool point = false;
  // Further digits behind the point tell nothing, and would make the division one of infinity by infinity.
  constexpr double enough = 1e300;
  for (; i < text.size(); ++i) {
    const QChar c = text[i];
    if (isAsciiDigit(c)) {
      if (point && std::max(value, divisor) >= enough)
        continue;
      value = value * 10 + (c.unicode() - u'0');
      if (point)
        divisor *= 10;
    } else if (c == u'.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  value /= divisor;
  return negative && value != 0 ? -value : value;
}

int leadingInteger(QStringView text) noexcept {
  const double value = leadingNumber(text);
  constexpr double least = std::numeric_limits<int>::min();
  constexpr double most = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, least, most));
}

QStringView mid1(QStringView text, Position1 pos, qsizetype length) noexcept {
  qsizetype end = length < 0 ? text.size() : std::min(text.size(), pos.index() + length);
  const qsizetype begin = std::clamp<qsizetype>(pos.index(), 0, text.size());
  end = std::max(end, begin);
  return text.sliced(begin, end - begin);
}

Position1 find1(QStringView text, QStringView word, Position1 from) noexcept {
  return Position1::ofIndex(text.indexOf(word, std::max<qsizetype>(from.index(), 0)));
}

QChar at1(QStringView text, Position1 pos) noexcept {
  return pos.index() >= 0 && pos.index() < text.size() ? text[pos.index()] : QChar();
}

QString asciiUpper(QStringView text) {
  QString upper = text.toString();
  for (QChar& c : upper) {
    if (c >= u'a' && c <= u'z')
      c = QChar(c.unicode() - u'a' + u'A');
  }
  return upper;
}

QStringView trimBlanks(QStringView text) noexcept {
  while (text.startsWith(u' '))
    text = text.sliced(1);
  while (text.endsWith(u' '))
    text.chop(1);
  return text;
}

QString plainNumber(double value, int significant) {
  QString text = QString::number(value, 'g', significant);
  if (!text.contains(u'e'))
    return text;
  text = QString::number(value, 'f', significant);
  while (text.endsWith(u'0'))
    text.chop(1);
  if (text.endsWith(u'.'))
    text.chop(1);
  return text;
}

QString twoDigits(int value) {
  const QString digits = QString::number(std::abs(value)).rightJustified(2, u'0');
  return value < 0 ? u'-' + digits : digits;
}

bool isCodeList(QStringView text) noexcept {
  if (text.size() < 4 || (text.size() - 4) % 5 != 0)
    return false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool separator = (i + 1) % 5 == 0;
    if (separator ? text[i] != u' ' : !isAsciiLetter(text[i]))
      return false;
  }
  return true;
}

int displayWidth(QStringView line) {
  // The environment's locale may know ASCII alone.
  static const locale_t utf8 = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  const locale_t before = ::uselocale(utf8);
  int columns = 0;
  for (const uint c : line.toUcs4())
    columns += std::max(0, wcwidth(wchar_t(c)));
  ::uselocale(before);
  return columns;
}

void rememberWord(QString& list, QStringView word) {
  constexpr qsizetype limit = 200;
  const QString delimited = u' ' + word.toString() + u' ';
  if (list.contains(delimited))
    return;
  if (list.isEmpty())
    list = u' ';
  list += delimited.sliced(1);
  while (list.size() > limit) {
    const qsizetype blank = list.indexOf(u' ', 1);
    if (blank < 0 || blank + 1 >= list.size())
      break;
    list.remove(0, blank);
  }
}

} // namespace soran
