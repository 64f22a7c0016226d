// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any text, codes, group name, limits and switches: the runs must cover the text in order and be as long as
// possible. The first bytes choose the settings, the first two lines behind them are the codes and the group.
#include "interpret/colouring.h"

#include <QString>
#include <cstdlib>

using namespace soran;

namespace {

void require(bool holds) {
  if (!holds)
    std::abort();
}

QStringView takeLine(QStringView& text) {
  const qsizetype end = text.indexOf(u'\n');
  const QStringView line = text.first(end < 0 ? 0 : end);
  text = text.sliced(end + 1);
  return line;
}

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
    require(runs[i].start == end && runs[i].length > 0);
    require(i == 0 || runs[i].colour != runs[i - 1].colour || runs[i].bold != runs[i - 1].bold);
    end += runs[i].length;
  }
  require(end == text.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3)
    return 0;
  const SettingsRecord settings = settingsFrom(data[0], data[1], data[2]);
  const QString input =
      QString::fromUtf8(reinterpret_cast<const char*>(data + 3), static_cast<qsizetype>(size - 3));
  QStringView text = input;
  const QStringView codes = takeLine(text);
  const QStringView group = takeLine(text);

  const std::vector<AttributeRun> runs = colourRuns(text, settings, codes, group);
  check(text, runs);
  // What is coloured once stays as it is.
  require(colourRuns(text, settings, codes, group, runs) == runs);
  const AttributeRun odd[] = {{-1, 9, 7, true}, {text.size() - 2, 9, 8, true}, {text.size() + 5, 1, 9, true}};
  check(text, colourRuns(text, settings, codes, group, odd));
  return 0;
}
