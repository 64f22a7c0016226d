// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"

#include <QItemSelectionModel>
#include <QTableView>
#include <functional>

namespace soran {

/// What a grid shows of an editor: the count of its rows, the chosen one (-1 where there is none) and the
/// text in a row and column, all from 0.
struct GridRows {
  std::function<int()> count;
  std::function<int()> selected;
  std::function<QString(int row, int column)> text;
};

/// The rows of an editor.
class EditorModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  /// One column for each heading. What the rows are read from outlives the model.
  EditorModel(GridRows rows, const QStringList& headings, QObject* parent);

  /// The list may have changed.
  void refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  GridRows rows_;
  QStringList headings_;
  int shownRows_;
};

/// The table of an editor: shows its list and passes on what the user chooses.
class EditorGrid : public QTableView {
  Q_OBJECT
 public:
  explicit EditorGrid(QWidget* parent = nullptr);

  /// Shows these rows from now on, one column for each heading, the first one `firstColumn` digits wide.
  void showRows(GridRows rows, const QStringList& headings, int firstColumn);
  /// The same for a list of two texts a row, which outlives the grid.
  void showList(const EditedList& list, const QStringList& headings, int firstColumn);
  /// The list may have changed; `column` of its chosen row is the current cell.
  void mirror(int column = 0);
  /// Opens the current cell for editing where it is not open.
  void openCell();

 signals:
  /// The user went to a cell by mouse or keyboard.
  void cellChosen(int row, int column);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  /// A click beside the rows takes no mark away, as the chosen row stays chosen.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  std::function<int()> selected_;
  EditorModel* rows_ = nullptr;
  bool mirroring_ = false;
};

} // namespace soran
