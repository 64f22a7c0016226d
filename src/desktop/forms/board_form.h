// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "terminal/terminal.h"

#include <QDialog>
#include <memory>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace soran {

class ReportPane;
class BoardModel;

/// The form `board`: the watched airports at a glance, the report of the chosen one below. It follows the
/// watch; closing hides it.
class BoardForm : public QDialog {
  Q_OBJECT
 public:
  /// Of the group of that name, of the automatic list where it is empty.
  BoardForm(QWidget* parent, Terminal& terminal, const QString& group);

  /// Shows another group.
  void setGroup(const QString& group);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void lay();
  void connectControls();
  QLayout* makeSummary();
  QLayout* makeButtons();
  void showPicture(const QPoint& place, const QPoint& globalPlace);
  void refresh();
  std::vector<BoardRow> rowsToShow();
  void showSummary(const std::vector<BoardRow>& rows);
  void showReport();
  void fitColumns();
  std::optional<StationCode> chosen() const;
  void choose(const StationCode& code);
  void acknowledgeChosen();
  void acknowledgeAllAlarms();
  void toggleMute();
  void toggleFullScreen();
  void print();

  Terminal& terminal_;
  QString group_;
  BoardModel* model_;
  QTableView* table_;
  ReportPane* report_;
  QLineEdit* filter_;
  QCheckBox* worstFirst_;
  QLabel* summary_;
  std::unique_ptr<Timer> timer_;
  bool changed_ = false; ///< a cell is another one since the columns were fitted
};

} // namespace soran
