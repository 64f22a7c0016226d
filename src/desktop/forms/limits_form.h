// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/row_actions.h"
#include "forms/limits_editor.h"
#include "terminal/terminal.h"

#include <QDialog>

namespace Ui {
class LimitsForm;
}

namespace soran {

class CellDelegate;

/// The form `limits`: the limits of single airports.
class LimitsForm : public QDialog {
  Q_OBJECT
 public:
  LimitsForm(QWidget* parent, Terminal& terminal);
  ~LimitsForm() override;

  /// Writes the list and closes.
  void reject() override;

 private:
  void showRows();
  CellDelegate& cells();

  std::unique_ptr<Ui::LimitsForm> ui_;
  LimitsEditor editor_;
  std::unique_ptr<RowActions> actions_;
};

} // namespace soran
