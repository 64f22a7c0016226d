// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any text, codes, group name, limits and switches: the runs must cover the text in order and be as long as
// possible. The first bytes choose the settings, the first two lines behind them are the codes and the group.
#include "reports/colouring.h"

#include "targets.h"

namespace soran::fuzz {

namespace {

SettingsRecord settingsFrom(uint8_t switches, uint8_t limit, uint8_t missing) {
  SettingsRecord settings = SettingsRecord::standard(QStringLiteral("+9"));
  settings.set(key::天気略語着色, (switches & 1) == 0);
  settings.set(key::SPECI着色, (switches & 2) == 0);
  settings.set(key::計器気象状態を強調, (switches & 4) == 0);
  settings.set(key::鉛直視程1有効, (switches & 8) == 0);
  settings.set(key::雲高2, limit * 100);
  settings.set(key::視程2, limit * 40);
  if (missing < settingSpecs.size())
    settings.setValue(static_cast<SettingIndex>(missing), {});
  return settings;
}

void check(QStringView text, const std::vector<AttributeRun>& runs) {
  qsizetype end = 0;
  for (size_t i = 0; i < runs.size(); ++i) {
    require(runs[i].start == end && runs[i].length > 0, "each run begins where the last one ends");
    require(i == 0 || runs[i].colour != runs[i - 1].colour || runs[i].bold != runs[i - 1].bold,
            "runs are as long as possible");
    end += runs[i].length;
  }
  require(end == text.size(), "the runs cover the text");
}

} // namespace

void colour(QByteArrayView input) {
  if (input.size() < 3)
    return;
  const auto byte = [input](qsizetype i) { return static_cast<uint8_t>(input[i]); };
  const SettingsRecord settings = settingsFrom(byte(0), byte(1), byte(2));
  const QString whole = textOf(input.sliced(3));
  QStringView text = whole;
  const QStringView codes = takeUntil(text, u'\n');
  const QStringView group = takeUntil(text, u'\n');

  const std::vector<AttributeRun> runs = colourRuns(text, settings, codes, group);
  check(text, runs);
  require(colourRuns(text, settings, codes, group, runs) == runs, "what is coloured once stays as it is");
  const AttributeRun odd[] = {
      {-1, 9, Colour{7}, true}, {text.size() - 2, 9, Colour{8}, true}, {text.size() + 5, 1, Colour{9}, true}};
  check(text, colourRuns(text, settings, codes, group, odd));
}

} // namespace soran::fuzz
