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

/// The breaks of a text in their order, and in which column its last row ends; all of them are filled where
/// that is their number.
struct SoftWrapped {
  std::vector<SoftBreak> breaks = {};
  int column = 0;
};

/// Breaks lines that are wider than a terminal of so many columns between their words, so that no group of a
/// report is torn: a row goes on below as far in as its line begins, or as the value behind its title
/// ("地上視程　　 ： "). What has no blank in reach is left to the terminal. Begins at `from`, where the
/// cursor stands in `column` (from 0).
SoftWrapped softWrapped(QStringView text, qsizetype from, int columns, int column);

} // namespace soran
