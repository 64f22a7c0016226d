// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/decode_list_form.h"

#include "ui_decode_list_form.h"

#include <QStringListModel>

namespace soran {

DecodeListForm::DecodeListForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), ui_(std::make_unique<Ui::DecodeListForm>()), editor_(terminal.program()) {
  ui_->setupUi(this);
  setWindowTitle(DecodeListEditor::title.toString());
  connectList(*ui_->grid0, &DecodeListEditor::selectSource);
  connectList(*ui_->grid1, &DecodeListEditor::selectTarget);
  const std::pair<QPushButton*, void (DecodeListEditor::*)()> actions[] = {
      {ui_->cmd0, &DecodeListEditor::add},
      {ui_->cmd1, &DecodeListEditor::remove},
      {ui_->cmd2, &DecodeListEditor::moveUp},
      {ui_->cmd3, &DecodeListEditor::moveDown},
  };
  for (const auto& [button, action] : actions) {
    connect(button, &QPushButton::clicked, this,
            [this, &terminal, action = action] { terminal.guarded([&] { (editor_.*action)(); }); });
  }
  connect(ui_->grid0, &QListView::activated, ui_->cmd0, &QPushButton::click);
  connect(ui_->cmd4, &QPushButton::clicked, this, &DecodeListForm::reject);
  editor_.changed = [this] { mirror(); };
  mirror();
  ui_->grid0->setFocus();
}

DecodeListForm::~DecodeListForm() = default;

void DecodeListForm::connectList(QListView& list, void (DecodeListEditor::*select)(int)) {
  constexpr int shownRows = 14;
  constexpr int shownCharacters = 30;
  list.setModel(new QStringListModel(&list));
  const QFontMetrics metrics = list.fontMetrics();
  const int spacing = metrics.height() / 8;
  list.setSpacing(spacing);
  list.setMinimumSize(metrics.horizontalAdvance(u'0') * shownCharacters,
                      (metrics.height() + 2 * spacing) * shownRows);
  connect(&list, &QListView::pressed, this,
          [this, select](const QModelIndex& row) { (editor_.*select)(row.row()); });
  // A click beside the rows would take the mark away from the row that stays chosen.
  connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &list] {
    if (!mirroring_ && !list.selectionModel()->hasSelection())
      mirror();
  });
  connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, select](const QModelIndex& row) {
            if (!mirroring_ && row.isValid())
              (editor_.*select)(row.row());
          });
}

void DecodeListForm::showMark(QListView& list, const QStringList& texts, int marked) {
  auto& model = *qobject_cast<QStringListModel*>(list.model());
  if (model.stringList() != texts)
    model.setStringList(texts);
  const QModelIndex row = marked < 0 ? QModelIndex() : model.index(marked);
  if (row != list.currentIndex() || !row.isValid() || !list.selectionModel()->isSelected(row))
    list.setCurrentIndex(row);
}

void DecodeListForm::mirror() {
  mirroring_ = true;
  showMark(*ui_->grid0, editor_.sourceTexts(), editor_.markedSource());
  showMark(*ui_->grid1, editor_.targetTexts(), editor_.markedTarget());
  mirroring_ = false;
  ui_->cmd0->setEnabled(editor_.canAdd());
  ui_->cmd1->setEnabled(editor_.canRemove());
  ui_->cmd2->setEnabled(editor_.canMoveUp());
  ui_->cmd3->setEnabled(editor_.canMoveDown());
}

void DecodeListForm::reject() {
  editor_.close();
  QDialog::reject();
}

} // namespace soran
