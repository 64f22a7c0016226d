// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/airport_editor.h"
#include "terminal/terminal.h"

#include <QDialog>

namespace Ui {
class AirportForm;
}

namespace soran {

/// The form `airport`: the user's own list of airports.
class AirportForm : public QDialog {
  Q_OBJECT
 public:
  AirportForm(QWidget* parent, Terminal& terminal);
  ~AirportForm() override;

  /// Writes the list and closes.
  void reject() override;

 private:
  void mirror();

  std::unique_ptr<Ui::AirportForm> ui_;
  AirportEditor editor_;
};

} // namespace soran
