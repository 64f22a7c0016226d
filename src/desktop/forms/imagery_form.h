// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/widgets/imagery_view.h"
#include "terminal/terminal.h"

#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <memory>

namespace soran {

/// A window of pictures above the main one: a menu, a view and a tick each second. It begins anew whenever it
/// is shown after the user has closed it; between, it may be hidden and shown with what it held.
class ImageryForm : public QDialog {
  Q_OBJECT
 public:
  ImageryForm(QWidget* parent, Terminal& terminal);
  ~ImageryForm() override;

  ImageryView& imagery() { return *imagery_; }
  /// An entry of the window's menu is chosen by its name and index.
  virtual void choose(const QString& menu, std::optional<int> index) = 0;

  void done(int result) override;

 protected:
  /// Shows the first picture of a new opening.
  virtual void begin() = 0;
  /// A second has passed; true where the view is to be loaded anew.
  virtual bool tick() = 0;

  void showEvent(QShowEvent* event) override;

  Terminal& terminal() const { return terminal_; }
  QMenuBar& menuBar() { return *menuBar_; }
  /// An entry that is chosen by `name` and, where it is not negative, `index`.
  /// It is grey, with the reason to be read beside it, where the row says that there is nothing to ask.
  void addEntry(QMenu& menu, const QString& name, int index, const QString& caption, const ImageRow& row);

  /// Sets the size of the view in pixels and the window around it over the middle of the main window.
  void layOut(QSize viewSize, bool maximised);
  /// Loads the target in a turn of its own, behind the event that asked for it.
  void load(const ImageryTarget& target);

 private:
  void onTick();
  void showNote();

  Terminal& terminal_;
  QMenuBar* menuBar_;
  ImageryView* imagery_;
  QLabel* note_;
  std::unique_ptr<Timer> timer_;
  bool opened_ = false; // and not closed by the user since
};

} // namespace soran
