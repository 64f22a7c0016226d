// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/dictionary_form.h"

#include "desktop/forms/grid_editing.h"
#include "desktop/services/run_dialog.h"
#include "desktop/widgets/look.h"
#include "desktop/widgets/picture_drop.h"
#include "ui_dictionary_form.h"

#include <QFileDialog>

namespace soran {

using namespace Qt::StringLiterals;

DictionaryForm::DictionaryForm(QWidget* parent, Terminal& terminal, DictionaryMode mode)
    : QDialog(parent), terminal_(terminal), ui_(std::make_unique<Ui::DictionaryForm>()),
      editor_(terminal.program(), mode) {
  constexpr int keyWidth = 18;
  constexpr int nameWidth = 26;
  ui_->setupUi(this);
  setWindowTitle(editor_.title());
  const bool pictures = editor_.registersPictures();
  QStringList headings{editor_.keyHeading(), editor_.meaningHeading()};
  headings.removeAll(QString());
  ui_->grid->showList(editor_.list(), headings, pictures ? nameWidth : keyWidth);
  actions_ = std::make_unique<RowActions>(*ui_->grid);
  connectButtons();
  connectPicture();
  for (QWidget* widget :
       std::initializer_list<QWidget*>{ui_->tool_new, ui_->tool_edit, ui_->tool_del, ui_->cmd0, ui_->cmd1})
    widget->setVisible(!pictures);
  ui_->Picture1->setVisible(pictures);
  ui_->cmdPicture->setVisible(pictures);
  editor_.changed = [this] { mirror(); };
  mirror();
  ui_->grid->setFocus();
}

DictionaryForm::~DictionaryForm() = default;

void DictionaryForm::connectButtons() {
  actions_->showOn(*ui_->tool_new, *ui_->tool_edit, *ui_->tool_del);
  connectGrid(*ui_->grid, *actions_, editor_, terminal_).held = [this](const QString& typed) {
    return editor_.held(typed);
  };
  connect(ui_->cmd0, &QPushButton::clicked, this, [this] { editor_.moveDown(); });
  connect(ui_->cmd1, &QPushButton::clicked, this, [this] { editor_.moveUp(); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &DictionaryForm::reject);
}

void DictionaryForm::connectPicture() {
  drawFrameOf(*ui_->Picture1);
  editor_.decodes = [](const QByteArray& bytes) { return !QImage::fromData(bytes).isNull(); };
  connect(ui_->cmdPicture, &QPushButton::clicked, this, &DictionaryForm::choosePicture);
  // Behind the drop: a question would hold the program that the file came from.
  connect(
      ui_->Picture1, &PictureDrop::fileDropped, this,
      [this](const QString& path) { terminal_.guarded([&] { editor_.registerPictureFile(path); }); },
      Qt::QueuedConnection);
}

void DictionaryForm::choosePicture() {
  QFileDialog dialog(this, editor_.title(), QString(),
                     u"画像 (*.png *.jpg *.jpeg *.gif *.bmp);;すべてのファイル (*)"_s);
  dialog.setObjectName(u"openPicture"_s);
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (runDialog(dialog, terminal_.program().services.shutdown) != QDialog::Accepted ||
      dialog.selectedFiles().isEmpty())
    return;
  terminal_.guarded([&] { editor_.registerPictureFile(dialog.selectedFiles().constFirst()); });
}

void DictionaryForm::mirror() {
  ui_->grid->mirror(editor_.column());
  actions_->addition().setEnabled(editor_.canAdd());
  actions_->edit().setEnabled(editor_.canEdit());
  actions_->removal().setEnabled(editor_.canRemove());
  ui_->cmd0->setEnabled(editor_.canMoveDown());
  ui_->cmd1->setEnabled(editor_.canMoveUp());
  ui_->cmdPicture->setEnabled(editor_.list().hasSelection());
  if (editor_.registersPictures() && (shownPicture_.isNull() || shownPicture_ != editor_.picture())) {
    shownPicture_ = editor_.picture();
    ui_->Picture1->showPicture(shownPicture_);
  }
  if (editor_.editing())
    ui_->grid->openCell();
}

void DictionaryForm::reject() {
  editor_.close();
  QDialog::reject();
}

} // namespace soran
