// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialog_service.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The text with the line ends that a label understands.
QString labelText(QString text) {
  text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
  return text;
}

} // namespace

int DialogService::run(QDialog& dialog) const {
  if (shutdown_.requested())
    return QDialog::Rejected;
  QObject::connect(&shutdown_, &Shutdown::closing, &dialog, &QDialog::reject);
  return dialog.exec();
}

bool DialogService::question(const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Question, title, labelText(text), QMessageBox::NoButton, window_);
  box.setTextFormat(Qt::PlainText);
  box.setObjectName(u"question"_s);
  QPushButton* yes = box.addButton(u"はい(&Y)"_s, QMessageBox::YesRole);
  QPushButton* no = box.addButton(u"いいえ(&N)"_s, QMessageBox::NoRole);
  yes->setObjectName(u"yes"_s);
  no->setObjectName(u"no"_s);
  box.setDefaultButton(yes);
  box.setEscapeButton(no);
  run(box);
  return box.clickedButton() == yes;
}

void DialogService::message(const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Information, title, labelText(text), QMessageBox::Ok, window_);
  box.setTextFormat(Qt::PlainText);
  box.setObjectName(u"messageBox"_s);
  run(box);
}

std::optional<QString> DialogService::saveFile(const QString& title, const QString& suggestion) {
  QFileDialog dialog(window_, title, QString(), u"テキスト (*.txt);;すべてのファイル (*)"_s);
  dialog.setObjectName(u"saveFile"_s);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // Whether an existing file may go is asked by the one who asked for the name.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.selectFile(suggestion);
  if (run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

std::optional<QString> DialogService::openFile(const QString& title) {
  QFileDialog dialog(window_, title, QString(), u"JSON (*.json);;すべてのファイル (*)"_s);
  dialog.setObjectName(u"openFile"_s);
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

std::optional<QString> DialogService::choosePrinter(const QStringList& printers, const QString& current) {
  QInputDialog dialog(window_);
  dialog.setObjectName(u"printerselect"_s);
  dialog.setWindowTitle(u" 印刷"_s);
  dialog.setLabelText(u"プリンターを選択してください"_s);
  dialog.setComboBoxItems(printers);
  dialog.setTextValue(printers.contains(current) ? current : printers.value(0));
  dialog.setOkButtonText(u"印刷"_s);
  dialog.setCancelButtonText(u"キャンセル"_s);
  if (run(dialog) != QDialog::Accepted)
    return std::nullopt;
  return dialog.textValue();
}

} // namespace soran
