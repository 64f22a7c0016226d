// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/start_banner.h"

#include "desktop/widgets/look.h"

#include <QLabel>
#include <QVBoxLayout>

namespace soran {

using namespace Qt::StringLiterals;

StartBanner::StartBanner(QWidget* parent)
    : QFrame(parent), label_(new QLabel(this)), mark_(new QLabel(this)) {
  constexpr int margin = 14;
  setObjectName(u"Frame1"_s);
  setAccessibleName(u"起動表示"_s);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  label_->setObjectName(u"Label1"_s);
  label_->setAccessibleDescription(u"プログラムの名称とバージョン"_s);
  mark_->setObjectName(u"bannerMark"_s);
  mark_->setAccessibleDescription(u"試験データの表示"_s);
  mark_->setAlignment(Qt::AlignCenter);
  for (QLabel* label : {label_, mark_}) {
    label->setTextFormat(Qt::PlainText);
    layout->addWidget(label);
  }
}

void StartBanner::setContent(const QString& text, const QString& mark) {
  label_->setText(QString(text).replace(u'\r', u'\n'));
  mark_->setText(mark);
  mark_->setVisible(!mark.isEmpty());
  adjustSize();
  centre();
}

void StartBanner::setColours(Colour ground, Colour text) {
  paintLikeScreen(*this, ground, text);
  paintLikeScreen(*label_, ground, text);
  drawFrameOf(*this);
  paintLikeScreen(*mark_, ground, yellow);
}

void StartBanner::centre() {
  move(parentWidget()->rect().center() - rect().center());
}

} // namespace soran
