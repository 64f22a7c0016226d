// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/menu_mirror.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView popupName = u"menu_popup";

/// The letters with which the menus of the bar are opened by key.
constexpr std::pair<QStringView, char16_t> mnemonics[] = {
    {u"menu_file", u'F'},    {u"menu_list", u'S'},  {u"menu_company", u'G'},
    {u"menu_weather", u'W'}, {u"menu_setup", u'T'}, {u"menu_info", u'I'},
};

} // namespace

QString MenuMirror::captionOf(const MenuItem& item) {
  QString caption = item.caption;
  caption.replace(u'&', u"&&"_s);
  for (const auto& [name, letter] : mnemonics) {
    if (name == item.name)
      caption += u"(&"_s + QChar(letter) + u')';
  }
  return caption;
}

bool MenuMirror::isSameStructure(const QList<MenuItem>& items) const {
  return static_cast<size_t>(items.size()) == actions_.size() &&
         std::all_of(items.begin(), items.end(), [this](const MenuItem& item) {
           return actions_.contains({item.name, item.index});
         });
}

QAction* MenuMirror::addMenu(const MenuItem& item) {
  if (item.name == popupName) {
    menus_[item.name] = &popup_;
    return popup_.menuAction();
  }
  auto* menu = new QMenu(&bar_);
  menu->setObjectName(item.name);
  menu->setAccessibleName(item.caption);
  menus_[item.name] = menu;
  return item.parent.isEmpty() ? bar_.addMenu(menu) : menus_[item.parent]->addMenu(menu);
}

QAction* MenuMirror::add(const MenuItem& item) {
  if (item.isMenu)
    return addMenu(item);
  QMenu* menu = menus_[item.parent];
  QAction* action = item.isSeparator() ? menu->addSeparator() : menu->addAction(item.caption);
  action->setObjectName(item.name);
  connect(action, &QAction::triggered, this,
          [this, name = item.name, index = item.index] { emit chosen(name, index); });
  return action;
}

void MenuMirror::build(const QList<MenuItem>& items) {
  bar_.clear();
  popup_.clear();
  for (const auto& [name, menu] : menus_) {
    // One of them may be what the user has just chosen from.
    if (menu != &popup_)
      menu->deleteLater();
  }
  menus_.clear();
  actions_.clear();
  for (const MenuItem& item : items)
    actions_[{item.name, item.index}] = add(item);
}

void MenuMirror::showItems(const QList<MenuItem>& items) {
  if (!isSameStructure(items))
    build(items);
  for (const MenuItem& item : items) {
    QAction* action = actions_[{item.name, item.index}];
    if (!item.isSeparator())
      action->setText(captionOf(item));
    action->setVisible(item.visible);
    action->setEnabled(item.enabled);
  }
}

} // namespace soran
