// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/toolbar_frame.h"

#include "desktop/look.h"

#include <QDir>
#include <QHBoxLayout>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int colouredFaces = 18;
constexpr int iconSize = 24;

/// The file of a button's picture, without its ending: "img07-scroll-bar".
QString pictureOf(int index) {
  const QString pattern = u"img%1-*.svg"_s.arg(index, 2, 10, QChar(u'0'));
  const QStringList found = QDir(u":/icons"_s).entryList({pattern});
  return found.value(0).chopped(found.isEmpty() ? 0 : 4);
}

} // namespace

ToolbarFrame::ToolbarFrame(QWidget* parent) : QFrame(parent), strip_(new QHBoxLayout(this)) {
  strip_->setContentsMargins(0, 0, 0, 0);
  strip_->setSpacing(1);
  setMinimumHeight(iconSize + 10);
}

QToolButton* ToolbarFrame::addButton(int index, const QString& hoverText) {
  auto* button = new QToolButton(this);
  button->setObjectName(u"img%1"_s.arg(index));
  button->setAccessibleName(hoverText.trimmed());
  button->setToolTip(hoverText);
  button->setAutoRaise(true);
  button->setIconSize({iconSize, iconSize});
  button->setIcon(facedIcon(pictureOf(index), pictureOf(index + colouredFaces)));
  // A click leaves the keys with the screen; the strip is reached by Tab.
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this, [this, index] { emit buttonPressed(index); });
  strip_->addWidget(button);
  buttons_[index] = button;
  return button;
}

QToolButton* ToolbarFrame::button(int index) const {
  const auto found = buttons_.find(index);
  return found == buttons_.end() ? nullptr : found->second;
}

} // namespace soran
