// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/phrases.h"

#include "reports/checked_text.h"

namespace soran {

namespace {

// A wind group without its direction (three characters) and its unit (two).
constexpr qsizetype windFrame = 5;

/// The value of the four characters from position `pos`.
Plain rangeAt(QStringView group, Position1 pos) {
  constexpr qsizetype figures = 4;
  return {leadingNumber(take1(group, pos, figures))};
}

/// The range of an RVR group with its limits, up to the word that the tendency continues. Empty where the
/// group holds no limit: its tendency is told otherwise.
QString limitedRange(QStringView group, QStringView unit) {
  const Position1 slash = find1(group, u"/");
  const Position1 variation = find1(group, u"V");
  const Position1 above = find1(group, u"P");
  const Position1 below = find1(group, u"M");
  QString text;
  if (variation && take1(group, variation + 1, 1) == u"P") {
    writeAll(text, rangeAt(group, slash + 1), unit, u"から", rangeAt(group, variation + 2), unit,
             u"(測定範囲の上限)の間を変動して");
  } else if (variation && take1(group, variation - 5, 1) == u"M") {
    writeAll(text, rangeAt(group, slash + 1), unit, u"(測定範囲の下限)から", rangeAt(group, variation + 2),
             unit, u"の間を変動して");
  } else if (variation) {
    writeAll(text, rangeAt(group, slash + 1), unit, u"から", rangeAt(group, variation + 1), unit,
             u"の間を変動して");
  } else if (above) {
    writeAll(text, rangeAt(group, above + 1), unit, u"(測定範囲の上限)を超えて");
  } else if (below) {
    writeAll(text, rangeAt(group, below + 1), unit, u"(測定範囲の下限)を下回って");
  }
  return text;
}

QStringView plainTendency(QStringView group) {
  if (group.endsWith(u'U'))
    return u"で、さらに上昇中";
  if (group.endsWith(u'D'))
    return u"で、さらに下降中";
  return u"で、変化傾向は不明";
}

/// Ends a sentence with limits by the group's tendency. A sentence that does not fit the tendency is left
/// open, as in "below the lower limit" and rising.
void endByTendency(QString& sentence, QStringView group) {
  if (group.endsWith(u'U')) {
    sentence.replace(QStringLiteral("変動して"), QStringLiteral("変動しながら上昇中"));
    sentence.replace(QStringLiteral("超えて"), QStringLiteral("超えており、さらに上昇中"));
  } else if (group.endsWith(u'D')) {
    sentence.replace(QStringLiteral("変動して"), QStringLiteral("変動しながら下降中"));
    sentence.replace(QStringLiteral("下回って"), QStringLiteral("下回っており、さらに下降中"));
  } else {
    sentence += group.endsWith(u'N') ? QStringView(u"おり、変化なし") : QStringView(u"おり、変化傾向は不明");
  }
}

} // namespace

QString WindPhrase(QStringView group) {
  QString text;
  if (group == u"00000KT") {
    text = QStringLiteral("風速 0.4ノット以下の静穏な風");
    return text;
  }
  const QStringView speed = take1(group, 4, group.size() - windFrame);
  if (group.startsWith(u"VRB")) {
    writeAll(text, u"風向が特定できない ", Plain{leadingNumber(speed)}, u"ノットの風");
    return text;
  }
  writeAll(text, take1(group, 1, 3), u"°方向から ");
  if (speed.contains(u'P'))
    write(text, u"100ノット以上");
  else
    writeAll(text, Plain{leadingNumber(speed)}, u"ノット");
  if (const Position1 gust = find1(group, u"G")) {
    const QStringView peak = mid1(group, gust + 1);
    write(text, u" / 最大瞬間風速 ");
    if (peak.contains(u'P'))
      write(text, u"100ノット以上");
    else
      writeAll(text, Plain{leadingNumber(peak)}, u"ノット");
  }
  return text;
}

QString RvrPhrase(QStringView group) {
  const Position1 slash = find1(group, u"/");
  const QStringView unit = group.endsWith(u"FT") ? u"フィート" : u"メートル";
  QString sentence;
  writeAll(sentence, u"滑走路", take1(group, 2, slash - Position1(2)), u"のRVRは、");
  if (group.contains(u"/////")) {
    write(sentence, u"欠測している");
    return sentence;
  }
  const QString limited = limitedRange(group, unit);
  if (limited.isEmpty()) {
    writeAll(sentence, rangeAt(group, slash + 1), unit, plainTendency(group));
    return sentence;
  }
  write(sentence, limited);
  endByTendency(sentence, group);
  return sentence;
}

QString SeaLevelPressureText(QStringView group) {
  const QStringView figures = mid1(group, 4, 3);
  QString text;
  writeAll(text, leadingNumber(mid1(figures, 1, 1)) == 0 ? u"10" : u"9", mid1(figures, 1, 2), u".",
           mid1(figures, 3, 1));
  return text;
}

QString TenthsPhrase(QStringView group, Position1 pos) {
  QString text;
  if (at1(group, pos) == u'1')
    write(text, u"マイナス ");
  writeAll(text, Plain{leadingNumber(take1(group, pos + 1, 2))}, u".", take1(group, pos + 3, 1), u"℃");
  return text;
}

} // namespace soran
