// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/imagery_form.h"

#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace soran {

using namespace Qt::StringLiterals;

ImageryForm::ImageryForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), terminal_(terminal), menuBar_(new QMenuBar(this)),
      imagery_(new ImageryView(this, terminal.program().services.clock, terminal.program().services.shutdown,
                               [&terminal](const std::function<void()>& event) { terminal.guarded(event); })),
      note_(new QLabel(this)) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                 Qt::WindowCloseButtonHint);
  menuBar_->setObjectName(u"menubar"_s);
  menuBar_->setAccessibleName(u"メニュー"_s);
  connect(this, &QWidget::windowTitleChanged, imagery_, &ImageryView::describe);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setMenuBar(menuBar_);
  layout->addWidget(imagery_, 1);
  note_->setObjectName(u"lblNoteLine"_s);
  note_->setAccessibleName(u"画像の時刻"_s);
  note_->setTextFormat(Qt::PlainText);
  note_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  note_->setMargin(4);
  layout->setSpacing(0);
  layout->addWidget(note_);
  connect(imagery_, &ImageryView::settled, this, &ImageryForm::showNote);
  timer_ = terminal_.program().services.timers.make([this] { onTick(); });
}

ImageryForm::~ImageryForm() = default;

void ImageryForm::addEntry(QMenu& menu, const QString& name, int index, const QString& caption,
                           const ImageRow& row) {
  QString text = caption;
  QAction* action = menu.addAction(text.replace(u'&', u"&&"_s));
  action->setObjectName(name);
  action->setData(index);
  action->setEnabled(row.isAvailable());
  action->setToolTip(row.reason);
  menu.setToolTipsVisible(true);
  connect(action, &QAction::triggered, this, [this, name, index] {
    terminal_.guarded([&] { choose(name, index < 0 ? std::nullopt : std::optional(index)); });
  });
}

void ImageryForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (opened_)
    return;
  opened_ = true;
  timer_->setEnabled(true);
  begin();
}

void ImageryForm::done(int result) {
  opened_ = false;
  timer_->setEnabled(false);
  imagery_->stop();
  QDialog::done(result);
}

void ImageryForm::showNote() {
  const QString text = imagery_->note();
  if (note_->text() == text)
    return;
  note_->setText(text);
  note_->setStyleSheet(imagery_->isOld() ? u"background: #b00020; color: #ffffff; font-weight: bold;"_s
                                         : QString());
}

void ImageryForm::onTick() {
  showNote();
  if (tick())
    terminal_.guarded([this] { imagery_->refresh(); });
}

void ImageryForm::load(const ImageryTarget& target) {
  QTimer::singleShot(0, this, [this, target] {
    if (opened_)
      terminal_.guarded([&] { imagery_->open(target); });
  });
}

void ImageryForm::layOut(QSize viewSize, bool maximised) {
  constexpr QSize smallest(200, 150);
  // In a maximised window the view keeps its size, in the middle; else it is as large as the window. A least
  // size that grows would undo the maximising.
  imagery_->setMaximumSize(maximised ? viewSize : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
  imagery_->setMinimumSize(smallest);
  layout()->activate();
  if (maximised) {
    showMaximized();
    return;
  }
  if (isMaximized())
    showNormal();
  const QSize around(0, menuBar_->heightForWidth(viewSize.width()) + note_->sizeHint().height());
  resize((viewSize + around).boundedTo(screen()->availableSize() * 19 / 20));
  if (const QWidget* main = parentWidget())
    move(main->frameGeometry().center() - rect().center());
}

} // namespace soran
