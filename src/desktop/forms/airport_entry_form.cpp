// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/airport_entry_form.h"

#include "ui_airport_entry_form.h"

#include <QFocusEvent>

namespace soran {

namespace {

constexpr int nameWidth = 28;

/// Shows a text without moving the caret of one who types it.
void showText(QLineEdit& field, const QString& text) {
  if (field.text() == text)
    return;
  const int place = field.cursorPosition();
  field.setText(text);
  field.setCursorPosition(place);
}

} // namespace

AirportEntryForm::AirportEntryForm(QWidget* parent, AirportEntry& entry)
    : QDialog(parent), ui_(std::make_unique<Ui::AirportEntryForm>()), entry_(entry) {
  ui_->setupUi(this);
  setWindowTitle(entry.title());
  ui_->cmd0->setText(entry.confirmCaption());
  ui_->cmd0->setAccessibleName(entry.confirmCaption());
  ui_->cmd0->setToolTip(entry.confirmTip());
  ui_->cmd1->setText(AirportEntry::cancelCaption.toString());
  ui_->cmd1->setToolTip(entry.cancelTip());
  ui_->TextBox0->setToolTip(AirportEntry::codeTip.toString());
  ui_->TextBox1->setToolTip(AirportEntry::nameTip.toString());
  ui_->TextBox0->setMaxLength(AirportEntry::codeLength);
  ui_->TextBox0->setAttribute(Qt::WA_InputMethodEnabled, false);
  ui_->TextBox0->installEventFilter(this);
  ui_->TextBox1->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * nameWidth);
  connect(ui_->TextBox0, &QLineEdit::textEdited, this,
          [this](const QString& text) { entry_.typeCode(text); });
  connect(ui_->TextBox1, &QLineEdit::textEdited, this,
          [this](const QString& text) { entry_.typeName(text); });
  connect(ui_->cmd0, &QPushButton::clicked, this, &AirportEntryForm::accept);
  connect(ui_->cmd1, &QPushButton::clicked, this, &AirportEntryForm::reject);
  entry_.changed = [this] { mirror(); };
  entry_.wantFocus = [this](AirportEntry::Field field) {
    (field == AirportEntry::Field::Code ? ui_->TextBox0 : ui_->TextBox1)->setFocus();
  };
  mirror();
}

AirportEntryForm::~AirportEntryForm() {
  entry_.changed = [] {};
  entry_.wantFocus = [](AirportEntry::Field) {};
}

void AirportEntryForm::mirror() {
  showText(*ui_->TextBox0, entry_.code());
  showText(*ui_->TextBox1, entry_.name());
}

bool AirportEntryForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusOut)
    return QDialog::eventFilter(watched, event);
  const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
  if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
    // A message inside a change of the focus would take the focus from the one that is getting it.
    codeLeft_ = true;
    QMetaObject::invokeMethod(this, &AirportEntryForm::checkCode, Qt::QueuedConnection);
  }
  return false;
}

void AirportEntryForm::checkCode() {
  if (std::exchange(codeLeft_, false) && isVisible())
    entry_.codeLeft();
}

void AirportEntryForm::accept() {
  codeLeft_ = false; // the confirmation looks at the code itself
  if (entry_.confirm())
    QDialog::accept();
}

void AirportEntryForm::reject() {
  codeLeft_ = false;
  entry_.cancel();
  QDialog::reject();
}

} // namespace soran
