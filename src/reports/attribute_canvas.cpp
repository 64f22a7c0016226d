// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/attribute_canvas.h"

#include <algorithm>

namespace soran {

namespace {

template <class Value>
void fill(std::vector<Value>& values, Position1 pos, qsizetype length, Value value) {
  const auto size = static_cast<qsizetype>(values.size());
  const qsizetype begin = std::clamp<qsizetype>(pos.index(), 0, size);
  const qsizetype end = std::clamp<qsizetype>(pos.index() + length, begin, size);
  std::fill(values.begin() + begin, values.begin() + end, value);
}

} // namespace

AttributeCanvas::AttributeCanvas(qsizetype size, Colour ground, std::span<const AttributeRun> runs)
    : colours_(static_cast<size_t>(size), ground), bolds_(static_cast<size_t>(size)) {
  for (const AttributeRun& run : runs) {
    setColour(Position1::ofIndex(run.start), run.length, run.colour);
    setBold(Position1::ofIndex(run.start), run.length, run.bold);
  }
}

void AttributeCanvas::setColour(Position1 pos, qsizetype length, std::optional<Colour> colour) {
  if (colour)
    fill(colours_, pos, length, *colour);
}

void AttributeCanvas::setBold(Position1 pos, qsizetype length, bool bold) {
  fill<quint8>(bolds_, pos, length, bold ? 1 : 0);
}

std::vector<AttributeRun> AttributeCanvas::runs() const {
  std::vector<AttributeRun> runs;
  const size_t size = colours_.size();
  if (size == 0)
    return runs;
  // Counted ahead: a large screen has so many runs that a growing vector would cost more than the count.
  size_t count = 1;
  for (size_t i = 1; i < size; ++i)
    count += size_t{((qint32(colours_[i]) ^ qint32(colours_[i - 1])) | (bolds_[i] ^ bolds_[i - 1])) != 0};
  runs.reserve(count);

  size_t begin = 0;
  for (size_t i = 1; i <= size; ++i) {
    if (i < size && colours_[i] == colours_[begin] && bolds_[i] == bolds_[begin])
      continue;
    runs.push_back({static_cast<qsizetype>(begin), static_cast<qsizetype>(i - begin), colours_[begin],
                    bolds_[begin] != 0});
    begin = i;
  }
  return runs;
}

} // namespace soran
