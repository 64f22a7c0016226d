// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/settings_record.h"

#include <QDialog>
#include <memory>

namespace Ui {
class ComponentForm;
}

namespace soran {

/// The form `compornent`: versions and dates of the update module, the database and the program.
class ComponentForm : public QDialog {
  Q_OBJECT
 public:
  ComponentForm(QWidget* parent, const SettingsRecord& settings);
  ~ComponentForm() override;

 private:
  std::unique_ptr<Ui::ComponentForm> ui_;
};

} // namespace soran
