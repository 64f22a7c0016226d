// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <vector>

namespace soran {

/// Positions in the terminal's text, where CR LF counts two, against those in a text widget, where each line
/// end counts one. A position between CR and LF is taken for the one before CR.
class ScreenPositions {
 public:
  /// Starts over.
  void clear() { pairs_.clear(); }

  /// Takes over the text from position `from` on; what stands before is known already.
  void extend(QStringView text, qsizetype from);

  /// The widget's position of a position of the terminal.
  qsizetype toWidget(qsizetype position) const;

  /// The terminal's position of a position of the widget.
  qsizetype toScreen(qsizetype position) const;

 private:
  std::vector<qsizetype> pairs_; // positions of the CR of each CR LF
};

} // namespace soran
