// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/panel_form.h"
#include "store/settings_record.h"

#include <memory>

namespace Ui {
class VersionForm;
}

namespace soran {

/// The form `version`: the program's version.
class VersionForm : public PanelForm {
  Q_OBJECT
 public:
  VersionForm(QWidget* parent, const SettingsRecord& settings);
  ~VersionForm() override;

 private:
  std::unique_ptr<Ui::VersionForm> ui_;
};

} // namespace soran
