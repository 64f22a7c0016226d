// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pipeline/program.h"

namespace soran {

/// Prints the screen and saves it as text.
class Printing {
 public:
  explicit Printing(Program& program) : program_(program) {}

  /// The next print is automatic: bound to the stored printer and to the time window.
  void requestAutomatic() { printRequested_ = true; }

  /// Prints the whole text of the screen with a header line. Never throws but Unwind.
  void printScreen();

  /// Writes the screen's text to a file that the user chooses, in UTF-8, with the date and time behind it.
  void saveScreen();

 private:
  bool approveByDialog();
  bool approveAutomatic();
  bool withinSchedule() const;
  bool print(const QString& printer);
  void cancelSave();
  QString chosenPrinter() const;

  Program& program_;
  bool printRequested_ = false;
};

} // namespace soran
