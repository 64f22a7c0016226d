// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/version_form.h"

#include "desktop/widgets/look.h"
#include "ui_version_form.h"

namespace soran {

VersionForm::VersionForm(QWidget* parent, const SettingsRecord& settings)
    : PanelForm(parent, false), ui_(std::make_unique<Ui::VersionForm>()) {
  ui_->setupUi(this);
  showProgramName(*ui_->Image1, *ui_->lblName);
  ui_->lbl->setText(u"Version " + settings.value(SettingIndex::SORANバージョン).toString());
}

VersionForm::~VersionForm() = default;

} // namespace soran
