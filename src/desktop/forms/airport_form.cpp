// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/airport_form.h"

#include "desktop/forms/airport_entry_form.h"
#include "desktop/services/run_dialog.h"
#include "desktop/widgets/editor_grid.h"
#include "ui_airport_form.h"

#include <QHeaderView>

namespace soran {

using namespace Qt::StringLiterals;

AirportForm::AirportForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), ui_(std::make_unique<Ui::AirportForm>()), editor_(terminal.program()) {
  constexpr int codeWidth = 14;
  ui_->setupUi(this);
  setWindowTitle(AirportEditor::title.toString());
  ui_->grid->showList(editor_.list(),
                      {AirportEditor::codeHeading.toString(), AirportEditor::nameHeading.toString()},
                      codeWidth);
  const std::pair<QPushButton*, void (AirportEditor::*)()> actions[] = {
      {ui_->cmd1, &AirportEditor::add},      {ui_->cmd2, &AirportEditor::remove},
      {ui_->cmd3, &AirportEditor::change},   {ui_->cmd4, &AirportEditor::moveUp},
      {ui_->cmd5, &AirportEditor::moveDown},
  };
  for (const auto& [button, action] : actions) {
    connect(button, &QPushButton::clicked, this,
            [this, &terminal, action = action] { terminal.guarded([&] { (editor_.*action)(); }); });
  }
  connect(ui_->cmd0, &QPushButton::clicked, this, &AirportForm::reject);
  connect(ui_->grid, &EditorGrid::cellChosen, this, [this](int row, int) { editor_.select(row); });
  connect(ui_->grid, &QTableView::activated, this, [this, &terminal](const QModelIndex& cell) {
    terminal.guarded([&] { editor_.open(cell.row()); });
  });
  editor_.showEntry = [this, &terminal](AirportEntry& entry) {
    AirportEntryForm form(this, entry);
    runDialog(form, terminal.program().services.shutdown);
  };
  editor_.changed = [this] { mirror(); };
  mirror();
  ui_->grid->setFocus();
}

AirportForm::~AirportForm() = default;

void AirportForm::mirror() {
  ui_->grid->mirror();
  ui_->grid->horizontalHeader()->setVisible(editor_.headingsShown());
  ui_->cmd2->setEnabled(editor_.canRemove());
  ui_->cmd3->setEnabled(editor_.canChange());
  ui_->cmd4->setEnabled(editor_.list().canMoveUp());
  ui_->cmd5->setEnabled(editor_.list().canMoveDown());
}

void AirportForm::reject() {
  editor_.close();
  QDialog::reject();
}

} // namespace soran
