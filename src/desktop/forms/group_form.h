// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/row_actions.h"
#include "forms/group_editor.h"
#include "terminal/terminal.h"

#include <QDialog>

namespace Ui {
class GroupForm;
}

namespace soran {

/// The form `company`: named code lists.
class GroupForm : public QDialog {
  Q_OBJECT
 public:
  GroupForm(QWidget* parent, Terminal& terminal);
  ~GroupForm() override;

  /// Writes the list and closes.
  void reject() override;

 private:
  std::unique_ptr<Ui::GroupForm> ui_;
  GroupEditor editor_;
  std::unique_ptr<RowActions> actions_;
};

} // namespace soran
