// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/colouring.h"

#include "base/text.h"
#include "reports/attribute_canvas.h"
#include "reports/colouring_words.h"
#include "reports/limit_readings.h"
#include "reports/limits.h"
#include "reports/word_search.h"

#include <algorithm>

namespace soran {

using namespace colouring;

namespace {

/// The colours of the three weather conditions.
struct ConditionColours {
  SettingKey<SettingType::Rgb> ceiling;
  SettingKey<SettingType::Rgb> visibility; // of runway visual ranges too
};

constexpr ConditionColours conditionColours[] = {
    {key::雲高1の色, key::視程1の色},
    {key::雲高2の色, key::視程2の色},
    {key::雲高3の色, key::視程3の色},
};

using Readings = std::vector<LimitReading>;

std::vector<QStringView> allFixedWords() {
  std::vector<QStringView> words;
  for (const WeatherWord& weather : weatherWords)
    words.push_back(weather.word);
  for (const WeatherWord& cloud : stormClouds)
    words.push_back(cloud.word);
  for (const KindWord& kind : kindWords)
    words.push_back(kind.word);
  for (const CeilingForm& form : ceilingForms)
    words.push_back(form.word);
  words.insert(words.end(), {verticalVisibility.word, groupGap, runway, loading, lastKnown});
  words.insert(words.end(), std::begin(restoredWords), std::end(restoredWords));
  return words;
}

const WordSearch& fixedWords() {
  static const WordSearch search(allFixedWords());
  return search;
}

/// The group's name and the codes, which stand from position 2 on, each with a blank behind it.
std::vector<QStringView> shownNames(QStringView displayedCodes, QStringView groupName) {
  std::vector<QStringView> names;
  if (!groupName.isEmpty())
    names.push_back(groupName);
  Position1 pos = 2;
  while (const Position1 blank = find1(displayedCodes, u" ", pos)) {
    names.push_back(mid1(displayedCodes, pos, blank - pos));
    pos = blank + 1;
  }
  return names;
}

/// Calls `action` for the hits of a scan that looks on `step` characters behind each hit.
template <class Action>
void scan(const WordSearch::Positions& hits, qsizetype step, Action action) {
  Position1 next = 1;
  for (const Position1 pos : hits) {
    if (pos < next)
      continue;
    next = pos + step;
    action(pos);
  }
}

/// One run of the rules over one text. Positions count from 1.
class ColouringPass {
 public:
  ColouringPass(QStringView text, const SettingsRecord& settings, std::span<const AttributeRun> before)
      : text_(text), settings_(settings), normal_(settings[key::表示文字の色]),
        canvas_(text.size(), normal_.value_or(black), before), hits_(fixedWords().positionsIn(text)) {}

  void paintWeather(std::span<const WeatherWord> words);
  void paintKinds();
  void paintConditions();
  void paintLoading();
  void paintLastKnown();
  void restoreFixedWords();
  void restoreNames(std::span<const QStringView> names);

  std::vector<AttributeRun> runs() const { return canvas_.runs(); }

 private:
  const WordSearch::Positions& hitsOf(QStringView word) const {
    return hits_[static_cast<size_t>(fixedWords().indexOf(word))];
  }

  void readCeilings(const CeilingForm& form, Readings& readings) const;
  void readVisibilities(Readings& readings) const;
  void readRunways(Readings& readings) const;
  void paintBelow(const Readings& readings, std::optional<double> limit, std::optional<Colour> colour);
  void restoreWord(QStringView word, const WordSearch::Positions& hits);

  QStringView text_;
  const SettingsRecord& settings_;
  std::optional<Colour> normal_;
  AttributeCanvas canvas_;
  std::vector<WordSearch::Positions> hits_;
};

void ColouringPass::paintWeather(std::span<const WeatherWord> words) {
  for (const WeatherWord& weather : words) {
    const auto colour = weather.emphasis == Emphasis::Own ? settings_[key::天気略語の色] : red;
    scan(hitsOf(weather.word), weather.word.size(), [&](Position1 pos) {
      const QChar sign = at1(text_, pos - 1);
      const qsizetype signs = sign == u'+' || sign == u'-' ? 1 : 0;
      const qsizetype length = weather.word.size() + signs;
      canvas_.setColour(pos - signs, length, colour);
      if (weather.emphasis == Emphasis::RedBold)
        canvas_.setBold(pos - signs, length, true);
    });
  }
}

void ColouringPass::paintKinds() {
  const auto colour = settings_[key::SPECIの色];
  for (const KindWord& kind : kindWords) {
    const qsizetype length = kind.word.size() + kind.behind;
    scan(hitsOf(kind.word), kind.word.size(), [&](Position1 pos) { canvas_.setColour(pos, length, colour); });
  }
}

void ColouringPass::readCeilings(const CeilingForm& form, Readings& readings) const {
  scan(hitsOf(form.word), ceilingLength(form), [&](Position1 pos) {
    if (const auto reading = ceilingAt(text_, form, pos))
      readings.push_back(*reading);
  });
}

void ColouringPass::readVisibilities(Readings& readings) const {
  // The scan looks on at the last figure, so that the blank behind one group opens the next.
  scan(hitsOf(groupGap), 4, [&](Position1 pos) {
    if (at1(text_, pos + 5) != u' ')
      return;
    const QStringView front = text_.first(pos.index());
    const auto endsFront = [front](QStringView word) { return front.endsWith(word); };
    if (std::any_of(std::begin(timeWords), std::end(timeWords), endsFront))
      return;
    if (const auto reading = fourFiguresAt(text_, pos + 1))
      readings.push_back(*reading);
  });
}

void ColouringPass::readRunways(Readings& readings) const {
  // Every hit stands for all figures from itself to the next blank. A hit before the end of what is read
  // already adds nothing, and reading it again would make a long word cost the square of its length.
  Position1 read;
  scan(hitsOf(runway), 8, [&](Position1 pos) {
    if (pos < read || (at1(text_, pos + 3) != u'/' && at1(text_, pos + 4) != u'/'))
      return;
    read = readRunwayRanges(text_, pos,
                            [&readings](const LimitReading& reading) { readings.push_back(reading); });
  });
}

void ColouringPass::paintBelow(const Readings& readings, std::optional<double> limit,
                               std::optional<Colour> colour) {
  if (!limit)
    return;
  for (const LimitReading& reading : readings) {
    if (reading.value < *limit)
      canvas_.setColour(reading.pos, reading.length, colour);
  }
}

void ColouringPass::paintConditions() {
  const Limits limits = Limits::of(settings_);
  Readings ceilings;
  for (const CeilingForm& form : ceilingForms)
    readCeilings(form, ceilings);
  Readings verticals;
  readCeilings(verticalVisibility, verticals);
  Readings visibilities;
  readVisibilities(visibilities);
  readRunways(visibilities);

  for (size_t i = 0; i < limits.conditions.size(); ++i) {
    const std::optional<ConditionLimits>& condition = limits.conditions[i];
    if (!condition)
      continue;
    std::optional<double> hundreds;
    if (condition->ceiling)
      hundreds = *condition->ceiling / 100.0;
    const auto ceilingColour = settings_[conditionColours[i].ceiling];
    paintBelow(ceilings, hundreds, ceilingColour);
    if (condition->testsVertical)
      paintBelow(verticals, hundreds, ceilingColour);
    paintBelow(visibilities, condition->visibility, settings_[conditionColours[i].visibility]);
  }
}

void ColouringPass::paintLoading() {
  scan(hitsOf(loading), loadingLength, [&](Position1 pos) { canvas_.setColour(pos, loadingLength, yellow); });
}

void ColouringPass::restoreWord(QStringView word, const WordSearch::Positions& hits) {
  scan(hits, word.size(), [&](Position1 pos) {
    if (word == freeSign) {
      const QStringView behind = mid1(text_, pos + 2, 1);
      if (leadingNumber(behind) == 0 && behind != u" ")
        return;
    }
    canvas_.setBold(pos, word.size(), false);
    canvas_.setColour(pos, word.size(), normal_);
  });
}

void ColouringPass::restoreFixedWords() {
  for (const QStringView word : restoredWords)
    restoreWord(word, hitsOf(word));
}

void ColouringPass::restoreNames(std::span<const QStringView> names) {
  const WordSearch search(names);
  const std::vector<WordSearch::Positions> hits = search.positionsIn(text_);
  for (size_t i = 0; i < hits.size(); ++i)
    restoreWord(search.words()[i], hits[i]);
}

void ColouringPass::paintLastKnown() {
  scan(hitsOf(lastKnown), lastKnown.size(), [&](Position1 pos) {
    const Position1 end = find1(text_, u"\r", pos);
    const qsizetype length = end ? end - pos : text_.size() - pos.index();
    canvas_.setColour(pos, length, red);
    canvas_.setBold(pos, length, true);
  });
}

} // namespace

std::vector<AttributeRun> colourRuns(QStringView text, const SettingsRecord& settings,
                                     QStringView displayedCodes, QStringView groupName,
                                     std::span<const AttributeRun> before) {
  ColouringPass pass(text, settings, before);
  if (settings[key::天気略語着色] == true)
    pass.paintWeather(weatherWords);
  if (settings[key::SPECI着色] == true)
    pass.paintKinds();
  if (settings[key::計器気象状態を強調] == true) {
    if (settings[key::CBTCUを強調] == true)
      pass.paintWeather(stormClouds);
    pass.paintConditions();
  }
  pass.paintLoading();
  pass.restoreFixedWords();
  pass.restoreNames(shownNames(displayedCodes, groupName));
  pass.paintLastKnown();
  return pass.runs();
}

} // namespace soran
