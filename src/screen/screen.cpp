// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/screen.h"

#include <algorithm>

namespace soran {

namespace {

void addRun(std::vector<AttributeRun>& runs, const AttributeRun& run) {
  if (run.length <= 0)
    return;
  if (!runs.empty() && runs.back().colour == run.colour && runs.back().bold == run.bold)
    runs.back().length += run.length;
  else
    runs.push_back(run);
}

} // namespace

void Screen::setText(const QString& text) {
  text_ = text;
  runs_.clear();
  addRun(runs_, {0, text_.size(), baseColour_, baseBold_});
  caret_ = 0;
  emit replaced();
}

void Screen::append(const QString& text) {
  if (text.isEmpty())
    return;
  const qsizetype from = text_.size();
  text_ += text;
  if (runs_.empty())
    addRun(runs_, {0, text.size(), baseColour_, baseBold_});
  else
    runs_.back().length += text.size();
  emit appended(from);
}

void Screen::setCaret(qsizetype position) {
  caret_ = std::clamp<qsizetype>(position, 0, text_.size());
  emit caretMoved();
}

void Screen::setRuns(std::vector<AttributeRun> runs) {
  if (runs == runs_)
    return;
  runs_ = std::move(runs);
  emit attributesChanged();
}

void Screen::paint(qsizetype start, qsizetype length, Colour colour) {
  const qsizetype end = std::min(text_.size(), start + length);
  start = std::max<qsizetype>(start, 0);
  std::vector<AttributeRun> painted;
  for (const AttributeRun& run : runs_) {
    const qsizetype runEnd = run.start + run.length;
    const qsizetype from = std::clamp(start, run.start, runEnd);
    const qsizetype to = std::clamp(end, from, runEnd);
    addRun(painted, {run.start, from - run.start, run.colour, run.bold});
    addRun(painted, {from, to - from, colour, run.bold});
    addRun(painted, {to, runEnd - to, run.colour, run.bold});
  }
  setRuns(std::move(painted));
}

void Screen::setBase(Colour colour, bool bold) {
  baseColour_ = colour;
  baseBold_ = bold;
  std::vector<AttributeRun> runs;
  addRun(runs, {0, text_.size(), colour, bold});
  setRuns(std::move(runs));
}

} // namespace soran
