// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/dialog_service.h"

#include "desktop/forms/printer_select_form.h"
#include "desktop/services/run_dialog.h"

#include <QApplication>
#include <QFileDialog>
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

/// Over a form that holds everything, else over the main window.
QWidget* DialogService::owner() {
  if (!window_ && makeWindow_)
    makeWindow_();
  if (QWidget* form = QApplication::activeModalWidget())
    return form;
  // The one that the user works in, which gets the keys back behind the box.
  QWidget* active = QApplication::activeWindow();
  return active && active->isVisible() && active->windowType() != Qt::Popup ? active : window_.get();
}

bool DialogService::question(const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Question, title, labelText(text), QMessageBox::NoButton, owner());
  box.setTextFormat(Qt::PlainText);
  box.setObjectName(u"question"_s);
  QPushButton* yes = box.addButton(u"はい(&Y)"_s, QMessageBox::YesRole);
  QPushButton* no = box.addButton(u"いいえ(&N)"_s, QMessageBox::NoRole);
  yes->setObjectName(u"yes"_s);
  no->setObjectName(u"no"_s);
  box.setDefaultButton(yes);
  box.setEscapeButton(no);
  runDialog(box, shutdown_);
  return box.clickedButton() == yes;
}

void DialogService::message(const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Information, title, labelText(text), QMessageBox::Ok, owner());
  box.setTextFormat(Qt::PlainText);
  box.setObjectName(u"messageBox"_s);
  runDialog(box, shutdown_);
}

std::optional<QString> DialogService::saveFile(const QString& title, const QString& suggestion) {
  const std::pair<QStringView, QString> kinds[] = {{u".txt", u"テキスト (*.txt)"_s},
                                                   {u".json", u"JSON (*.json)"_s},
                                                   {u".jsonl", u"JSON Lines (*.jsonl)"_s},
                                                   {u".csv", u"CSV (*.csv)"_s},
                                                   {u".png", u"画像 (*.png *.svg)"_s}};
  QString filter = u"すべてのファイル (*)"_s;
  for (const auto& [ending, kind] : kinds) {
    if (suggestion.endsWith(ending))
      filter.prepend(kind + u";;");
  }
  QFileDialog dialog(owner(), title, QString(), filter);
  dialog.setObjectName(u"saveFile"_s);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // Whether an existing file may go is asked by the one who asked for the name.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.selectFile(suggestion);
  if (runDialog(dialog, shutdown_) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

std::optional<QString> DialogService::openFile(const QString& title) {
  QFileDialog dialog(owner(), title, QString(), u"JSON (*.json);;すべてのファイル (*)"_s);
  dialog.setObjectName(u"openFile"_s);
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (runDialog(dialog, shutdown_) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

std::optional<QString> DialogService::choosePrinter(const QStringList& printers, const QString& current) {
  PrinterSelection selection(printers, current, current, PrinterSelection::Purpose::Print);
  PrinterSelectForm form(owner(), selection);
  if (runDialog(form, shutdown_) != QDialog::Accepted)
    return std::nullopt;
  return selection.chosen();
}

} // namespace soran
