// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/component_form.h"

#include "ui_component_form.h"

namespace soran {

ComponentForm::ComponentForm(QWidget* parent, const SettingsRecord& settings)
    : QDialog(parent), ui_(std::make_unique<Ui::ComponentForm>()) {
  ui_->setupUi(this);
  struct Row {
    QLabel* version;
    QLabel* date;
    SettingIndex versionKey;
    SettingIndex dateKey;
  };
  const Row rows[] = {
      {ui_->lblUpdateVersion, ui_->lblUpdateDate, SettingIndex::UPDATEバージョン, SettingIndex::UPDATE更新日},
      {ui_->lblDbVersion, ui_->lblDbDate, SettingIndex::DBバージョン, SettingIndex::DB更新日},
      {ui_->lblSoranVersion, ui_->lblSoranDate, SettingIndex::SORANバージョン, SettingIndex::SORAN更新日},
  };
  for (const Row& row : rows) {
    row.version->setText(u"Ver " + settings.value(row.versionKey).toString());
    row.date->setText(settings.value(row.dateKey).toString() + u" 更新");
  }
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

ComponentForm::~ComponentForm() = default;

} // namespace soran
