// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/settings_sample.h"

#include "base/text.h"
#include "base/zone_offset.h"
#include "forms/settings_controls.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The time of day of the sample, 08 and `minute` UTC, in the displayed zone.
QString sampleTime(const SettingsRecord& settings, QStringView minute) {
  int offset = 0;
  if (settings[key::LOCAL使用] != false) {
    const QString text = settings[key::時差].value_or(QString());
    if (!settingsComboItems(offsetSettingsCombo).contains(text))
      return {};
    offset = leadingInteger(text);
  }
  return twoDigits((8 + offset + 24) % 24) + minute + ZoneLetter({offset});
}

void paint(std::vector<Colour>& colours, const QString& text, QStringView word, Colour colour) {
  for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1))
    std::fill_n(colours.begin() + at, word.size(), colour);
}

std::vector<AttributeRun> runsOf(const std::vector<Colour>& colours, bool bold) {
  std::vector<AttributeRun> runs;
  for (const Colour colour : colours) {
    if (!runs.empty() && runs.back().colour == colour)
      ++runs.back().length;
    else
      runs.push_back({runs.empty() ? 0 : runs.back().start + runs.back().length, 1, colour, bold});
  }
  return runs;
}

} // namespace

QString settingsSampleText(const SettingsRecord& settings) {
  return u" RJTT SPECI "_s + sampleTime(settings, u"25") + crlf +
         u"      260825Z 07013KT 8000 -RA BR SCT030 BKN///" + crlf + u"      13/11 Q1025 RMK 3CU030 A3027" +
         crlf + u" RJTT TAF   " + sampleTime(settings, u"42") + crlf +
         u"      260842Z 2609/2712 08010KT 6000 RA FEW030 BKN050" + crlf + u"      BECMG 2614/2616 02006KT" +
         crlf + crlf + u" READY / PRESS ESC TO EXIT" + crlf + u" ";
}

SettingsSample displaySample(const SettingsRecord& settings) {
  SettingsSample sample{.text = settingsSampleText(settings),
                        .font = settings[key::表示文字のフォント].value_or(QString()),
                        .size = settings[key::表示文字のサイズ].value_or(0),
                        .bold = settings[key::表示文字のボールド] == true,
                        .background = settings[key::表示領域の色].value_or(black),
                        .runs = {},
                        .scrollBar = settings[key::スクロールバーを表示] == true};
  std::vector<Colour> colours(size_t(sample.text.size()), settings[key::表示文字の色].value_or(white));
  if (settings[key::SPECI着色] == true)
    paint(colours, sample.text, u"SPECI", settings[key::SPECIの色].value_or(white));
  if (settings[key::天気略語着色] == true) {
    for (const QStringView word : {u"-RA", u"BR", u"RA"})
      paint(colours, sample.text, word, settings[key::天気略語の色].value_or(white));
  }
  sample.runs = runsOf(colours, sample.bold);
  return sample;
}

SettingsSample printSample(const SettingsRecord& settings) {
  SettingsSample sample{.text = settingsSampleText(settings),
                        .font = settings[key::印刷文字のフォント].value_or(QString()),
                        .size = settings[key::印刷文字のサイズ].value_or(0),
                        .bold = settings[key::印刷文字のボールド] == true,
                        .background = white,
                        .runs = {}};
  sample.runs = {{0, sample.text.size(), black, sample.bold}};
  return sample;
}

} // namespace soran
