// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <vector>

namespace soran {

/// A place at which a line goes on in the next row of a terminal: between two words, whose blanks give way.
struct SoftBreak {
  qsizetype at = 0;     ///< of the first blank, from 0
  qsizetype behind = 0; ///< of the next word
  int indent = 0;       ///< blanks ahead of it in its row

  bool operator==(const SoftBreak&) const = default;
};

/// Breaks lines that are wider than a terminal between their words, so that no group of a report is torn: a
/// row goes on below as far in as its line begins, or as the value behind its title ("地上視程　　 ： ").
/// What has no blank in reach is left to the terminal.
class SoftWrap {
 public:
  /// The breaks of a text from `from` on for so many columns, where the cursor stands in `column` (from 0).
  std::vector<SoftBreak> breaksFrom(QStringView text, qsizetype from, int columns, int column);

  /// In which column the last row ends; all of them are filled where it is their number.
  int column() const { return column_; }

 private:
  void beginLine(QStringView text, qsizetype at);
  void advance(int width, int columns);

  int column_ = 0;
  int indent_ = 0;
};

} // namespace soran
