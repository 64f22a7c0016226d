// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <optional>

namespace soran {

class Terminal;
class TerminalListener;

/// An entry of the main menus or of the popup menu, as it stands at this moment.
struct MenuItem {
  QString name;    ///< such as "menu_print"; entries made from rows share theirs
  int index = 0;   ///< of an entry made from a row, from 1; 0 for an entry alone
  QString caption; ///< empty for a separator
  QString parent;  ///< name of the menu that holds it; empty on the bar and for menu_popup
  bool isMenu = false;
  bool visible = true; ///< together with all menus around it
  bool enabled = true; ///< together with all menus around it

  bool isSeparator() const { return caption.isEmpty(); }
};

/// A button of the toolbar, as it stands at this moment.
struct ToolButton {
  int index = 0; ///< of its image; image 18 + index is its coloured face
  QString hover; ///< with the blanks around it
  bool visible = true;
  bool enabled = true;
  bool coloured = false; ///< the coloured face is shown
};

/// The toolbar, the main menus and the popup menu as data. Whether an entry is visible and enabled is worked
/// out from the state of the program whenever it is asked, never switched.
class Menus {
 public:
  Menus(Terminal& terminal, TerminalListener& listener) : terminal_(terminal), listener_(listener) {}

  /// Takes the airports over for the menu シーケンス, which keeps them for the program run.
  void takeAirports();
  const QStringList& airportCaptions() const { return airportCaptions_; }

  /// All entries, each menu ahead of what it holds. The menus of the bar come in its order; menu_popup is
  /// not on the bar.
  QList<MenuItem> items() const;

  /// Chooses an entry; one that is disabled or hidden does nothing. False where there is no such entry. An
  /// entry alone is found without an index or with 1.
  bool choose(const QString& name, std::optional<int> index = std::nullopt);

  /// Chooses an entry that was enabled when it was shown, whatever became of its conditions since.
  bool chooseShown(const QString& name, std::optional<int> index = std::nullopt);

  QList<ToolButton> buttons() const;

  /// Presses a button; one that is disabled or hidden does nothing. False where there is no such button.
  bool button(int index);

 private:
  std::optional<MenuItem> find(const QString& name, std::optional<int> index) const;
  bool isEmptyList(const QString& name) const;
  void run(const MenuItem& item);

  Terminal& terminal_;
  TerminalListener& listener_;
  QStringList airportCaptions_;
};

} // namespace soran
