// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/word_search.h"

#include <bit>

namespace soran {

WordSearch::WordSearch(std::span<const QStringView> words) {
  struct Cursor {
    QStringView word;
    int node;
  };
  std::vector<Cursor> open;
  open.reserve(words.size());
  size_t units = 0;
  for (const QStringView word : words) {
    units += static_cast<size_t>(word.size());
    if (!word.isEmpty())
      open.push_back({word, root});
  }
  edges_.resize(std::bit_ceil(2 * units + 2));
  nodes_.reserve(units + 1);
  nodes_.emplace_back();
  afterRoot_.fill(root);

  // Level by level, so that everything shorter stands when a new node looks for its longest suffix.
  for (qsizetype depth = 0; !open.empty(); ++depth) {
    for (Cursor& cursor : open)
      cursor.node = childOrNew(cursor.node, cursor.word[depth].unicode());
    std::erase_if(open, [&](const Cursor& cursor) {
      if (cursor.word.size() > depth + 1)
        return false;
      if (int& word = nodeAt(cursor.node).word; word == none) {
        word = static_cast<int>(words_.size());
        words_.push_back(cursor.word);
      }
      return true;
    });
  }
}

size_t WordSearch::slotOf(int from, char16_t unit) const noexcept {
  const size_t mask = edges_.size() - 1;
  const quint32 mixed = (static_cast<quint32>(from) * 0x9E3779B1U) ^ (unit * 0x85EBCA6BU);
  size_t slot = (mixed ^ (mixed >> 15)) & mask;
  while (edges_[slot].from != none && (edges_[slot].from != from || edges_[slot].unit != unit))
    slot = (slot + 1) & mask;
  return slot;
}

int WordSearch::childOrNew(int from, char16_t unit) {
  Edge& edge = edges_[slotOf(from, unit)];
  if (edge.from != none)
    return edge.to;
  Node node;
  if (from != root) {
    node.suffix = next(nodeAt(from).suffix, unit);
    node.shorter = nodeAt(node.suffix).word != none ? node.suffix : nodeAt(node.suffix).shorter;
  }
  const int added = static_cast<int>(nodes_.size());
  nodes_.push_back(node);
  edge = {from, unit, added};
  nodeAt(from).units |= bitOf(unit);
  if (from == root && unit < afterRoot_.size())
    afterRoot_[unit] = added;
  return added;
}

int WordSearch::next(int node, char16_t unit) const noexcept {
  for (; node != root; node = nodeAt(node).suffix) {
    if ((nodeAt(node).units & bitOf(unit)) == 0)
      continue;
    if (const int to = edges_[slotOf(node, unit)].to; to != none)
      return to;
  }
  if (unit < afterRoot_.size())
    return afterRoot_[unit];
  const int to = edges_[slotOf(root, unit)].to;
  return to != none ? to : root;
}

int WordSearch::indexOf(QStringView word) const noexcept {
  int node = root;
  for (const QChar c : word) {
    node = edges_[slotOf(node, c.unicode())].to;
    if (node == none)
      return none;
  }
  return nodeAt(node).word;
}

std::vector<WordSearch::Positions> WordSearch::positionsIn(QStringView text) const {
  std::vector<Positions> positions(words_.size());
  int node = root;
  for (qsizetype i = 0; i < text.size(); ++i) {
    node = next(node, text[i].unicode());
    for (int end = nodeAt(node).word != none ? node : nodeAt(node).shorter; end != root;
         end = nodeAt(end).shorter) {
      const auto word = static_cast<size_t>(nodeAt(end).word);
      positions[word].push_back(Position1::ofIndex(i + 1 - words_[word].size()));
    }
  }
  return positions;
}

} // namespace soran
