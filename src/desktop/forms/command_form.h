// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/panel_form.h"

#include <memory>

namespace Ui {
class CommandForm;
}

namespace soran {

/// The form `command`: the list of commands.
class CommandForm : public PanelForm {
  Q_OBJECT
 public:
  explicit CommandForm(QWidget* parent);
  ~CommandForm() override;

 private:
  std::unique_ptr<Ui::CommandForm> ui_;
};

} // namespace soran
