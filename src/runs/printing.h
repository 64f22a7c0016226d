// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

namespace soran {

/// Prints the screen and saves it as text.
class Printing {
 public:
  explicit Printing(Program& program) : program_(program) {}

  enum class Cause {
    User,           ///< asked first where the settings wish it
    Cycle,          ///< new reports: bound to the stored printer and to the time window
    DisturbedCycle, ///< new reports, but a key was hit meanwhile: not asked, and not bound
  };

  /// Prints the whole text of the screen with a header line. Gives the lines that are to stand behind the
  /// reports of the run that it belongs to. Never throws but Unwind.
  QString printScreen(Cause cause = Cause::User);

  /// Writes the screen's text to a file that the user chooses, in UTF-8, with the date and time behind it.
  void saveScreen();

 private:
  bool approveByDialog();
  /// Empty where the print may go on, else why not.
  QString refusalOfAutomatic() const;
  bool withinSchedule() const;
  bool print(const QString& printer);
  void cancelSave();
  QString chosenPrinter() const;

  Program& program_;
};

} // namespace soran
