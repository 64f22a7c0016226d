// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/widgets/drawing_painter.h"
#include "terminal/terminal.h"

#include <QDialog>
#include <memory>

class QLabel;
class QListView;

namespace soran {

class ReportPane;
class MapListModel;
class MapView;

/// The form `map`: the watched airports where they lie, beside it a list of them, the worst first, and below
/// the report of the chosen one. It follows the watch; closing hides it.
class MapForm : public QDialog {
  Q_OBJECT
 public:
  /// Of the group of that name, of the automatic list where it is empty.
  MapForm(QWidget* parent, Terminal& terminal, const QString& group);

  /// Shows another group, all of it.
  void setGroup(const QString& group);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void lay();
  QWidget* makeBar();
  void connectControls();
  void refresh();
  void showSummary(qsizetype count, qsizetype placed);
  void showReport();
  void choose(const QString& code);
  void chooseInList(int row);

  Terminal& terminal_;
  QString group_;
  Ground ground_;
  MapView* view_;
  MapListModel* model_;
  QListView* list_;
  ReportPane* report_;
  QLabel* summary_;
  std::unique_ptr<Timer> timer_;
  QString chosen_; ///< the code of the airport whose report is shown
};

} // namespace soran
