// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/group_form.h"

#include "desktop/forms/grid_editing.h"
#include "ui_group_form.h"

namespace soran {

using namespace Qt::StringLiterals;

GroupForm::GroupForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), ui_(std::make_unique<Ui::GroupForm>()), editor_(terminal.program()) {
  constexpr int nameWidth = 14;
  ui_->setupUi(this);
  setWindowTitle(GroupEditor::title.toString());
  ui_->grid->showList(editor_.list(), {u"グループ名"_s, u"ICAOコード"_s}, nameWidth);
  actions_ = connectListForm(*ui_, *this, editor_, terminal);
}

GroupForm::~GroupForm() = default;

void GroupForm::reject() {
  editor_.close();
  QDialog::reject();
}

} // namespace soran
