// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/toolbar_frame.h"

#include "desktop/widgets/look.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int colouredFaces = 18;
constexpr int usualIcon = 24;
constexpr int smallIcon = 16;
constexpr int narrowScreen = 800; // units, as they are with a great scale

/// The pictures of the buttons by their index: 7 is "img07-scroll-bar".
std::map<int, QString> buttonPictures() {
  std::map<int, QString> pictures;
  for (const QString& file : QDir(u":/icons"_s).entryList({u"img[0-9]*-*.svg"_s}))
    pictures[QStringView(file).mid(3, 2).toInt()] = QFileInfo(file).completeBaseName();
  return pictures;
}

/// A button that shows who has the keys: the style's own sign of it is too dark to be seen at night. A grey
/// one is not raised under the mouse.
class StripButton final : public QToolButton {
 public:
  using QToolButton::QToolButton;

  bool isRaisedByMouse = false;

 protected:
  void initStyleOption(QStyleOptionToolButton* option) const override {
    QToolButton::initStyleOption(option);
    if (!isRaisedByMouse)
      option->state &= ~QStyle::State_MouseOver;
  }
  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    if (!hasFocus())
      return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

} // namespace

ToolbarFrame::ToolbarFrame(QWidget* parent)
    : QFrame(parent), strip_(new QHBoxLayout(this)), pictures_(buttonPictures()),
      iconSize_(screen()->availableSize().width() < narrowScreen ? smallIcon : usualIcon) {
  strip_->setContentsMargins(0, 0, 0, 0);
  strip_->setSpacing(1);
  setMinimumHeight(usualIcon + 10);
}

QToolButton* ToolbarFrame::addButton(int index) {
  auto* button = new StripButton(this);
  button->setObjectName(u"img%1"_s.arg(index));
  button->setAutoRaise(true);
  button->setIconSize({iconSize_, iconSize_});
  // A click leaves the keys with the screen; the strip is reached by Tab.
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this, [this, index] { emit buttonPressed(index); });
  strip_->addWidget(button);
  return button;
}

void ToolbarFrame::showTip(QToolButton& button, const QString& tip) {
  // Each setting is an event on the bus, and a reader under a flood of them leaves out what it should speak.
  if (button.toolTip() == tip)
    return;
  button.setToolTip(tip);
  button.setAccessibleName(tip.trimmed());
  // Else a reader speaks the tip behind the name that it repeats.
  button.setAccessibleDescription(tip.trimmed());
}

void ToolbarFrame::showButtons(const QList<ToolButton>& buttons) {
  for (const ToolButton& told : buttons) {
    Place& place = places_[told.index];
    if (!place.button)
      place.button = addButton(told.index);
    if (place.coloured != told.coloured) {
      place.coloured = told.coloured;
      static_cast<StripButton*>(place.button)->isRaisedByMouse = told.coloured;
      place.button->setIcon(drawnIcon(pictures_[told.index + (told.coloured ? colouredFaces : 0)]));
    }
    showTip(*place.button, told.hover);
    place.button->setVisible(told.visible);
    place.button->setEnabled(told.enabled);
  }
}

QToolButton* ToolbarFrame::button(int index) const {
  const auto found = places_.find(index);
  return found == places_.end() ? nullptr : found->second.button;
}

} // namespace soran
