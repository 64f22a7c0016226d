// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/foreign_text.h"

#include <algorithm>

namespace soran {

namespace {

/// Reports are of these alone, nearly always, and the dictionaries of these and Japanese.
bool isPlain(QChar c) noexcept {
  const bool isJapanese = (c >= u'\u3041' && c <= u'\u30FF') || (c >= u'\u4E00' && c <= u'\u9FFF');
  return (c >= u' ' && c <= u'~') || c == u'\n' || c == u'\r' || c == u'\t' || isJapanese;
}

bool isFiller(char32_t c) noexcept {
  constexpr char32_t fillers[] = {0x034F, 0x115F, 0x1160, 0x17B4, 0x17B5, 0x3164, 0xFFA0};
  return std::find(std::begin(fillers), std::end(fillers), c) != std::end(fillers);
}

} // namespace

bool isMisleading(char32_t character) noexcept {
  if (character < 0x10000 && isPlain(QChar(char16_t(character))))
    return false;
  switch (QChar::category(character)) {
  case QChar::Other_Control:
  case QChar::Other_Format:
  case QChar::Other_Surrogate:
  case QChar::Separator_Line:
  case QChar::Separator_Paragraph:
    return true;
  default:
    return isFiller(character);
  }
}

QString cleaned(QStringView text) {
  if (std::all_of(text.begin(), text.end(), isPlain))
    return text.toString();
  QString clean;
  clean.reserve(text.size());
  for (qsizetype i = 0; i < text.size();) {
    const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    const QStringView written = text.sliced(i, isPair ? 2 : 1);
    const char32_t character =
        isPair ? QChar::surrogateToUcs4(written[0], written[1]) : char32_t(written[0].unicode());
    clean += isMisleading(character) ? QStringView(&maskedCharacter, 1) : written;
    i += written.size();
  }
  return clean;
}

} // namespace soran
