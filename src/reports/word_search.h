// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/position1.h"

#include <QStringView>
#include <array>
#include <span>
#include <vector>

namespace soran {

/// Finds every place of many words in a text in one pass, exact in case (the method of Aho and Corasick,
/// "Efficient string matching", CACM 1975). The cost grows in line with the text and the number of hits,
/// whatever the words are. The words are not copied: their text must outlive the search.
class WordSearch {
 public:
  /// Positions at which one word begins, ascending; those of a word like "SS" may overlap.
  using Positions = std::vector<Position1>;

  /// Equal words are taken once, empty ones not at all.
  explicit WordSearch(std::span<const QStringView> words);

  /// The words searched for, each once, shorter ones first.
  const std::vector<QStringView>& words() const { return words_; }

  /// The index of a word in `words()`, -1 where it is not among them.
  int indexOf(QStringView word) const noexcept;

  /// The positions of each word, in the order of `words()`.
  std::vector<Positions> positionsIn(QStringView text) const;

 private:
  static constexpr int root = 0;
  static constexpr int none = -1;

  struct Node {
    int suffix = root;  // the longest proper suffix of this node's text that begins a word
    int shorter = root; // the longest proper suffix that is a word, the root for none
    int word = none;    // the word that ends here
    quint64 units = 0;  // a bit for each unit that may follow, so that most misses need no look-up
  };
  struct Edge {
    int from = none;
    char16_t unit = 0;
    int to = none;
  };

  Node& nodeAt(int node) { return nodes_[static_cast<size_t>(node)]; }
  const Node& nodeAt(int node) const { return nodes_[static_cast<size_t>(node)]; }
  static constexpr quint64 bitOf(char16_t unit) { return quint64{1} << (unit % 64); }
  size_t slotOf(int from, char16_t unit) const noexcept;
  int childOrNew(int from, char16_t unit);
  int next(int node, char16_t unit) const noexcept;

  std::vector<QStringView> words_;
  std::vector<Node> nodes_;
  std::vector<Edge> edges_;          // open addressing, a power of two, never more than half full
  std::array<int, 128> afterRoot_{}; // the root's children for ASCII, where most steps of a scan begin
};

} // namespace soran
