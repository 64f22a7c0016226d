// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "store/settings_record.h"

#include <QAbstractTableModel>

namespace soran {

/// The rows of the board for a table. Only what changed is told to the table, so that it does not flicker and
/// keeps its selection.
class BoardModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Shows these rows as they are at `now` (UTC), in the colours of the settings.
  void show(std::vector<BoardRow> rows, const SettingsRecord& settings, const QDateTime& now);

  /// The row's airport; a row from 0.
  const BoardRow& rowAt(int row) const { return rows_[size_t(row)].row; }
  /// The row of a code; -1 where there is none.
  int rowOf(const StationCode& code) const;

  /// There are rows, and none has anything in the column, from 0.
  bool isEmpty(int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Shown {
    BoardRow row;
    QStringList cells;
    Colour colour = white;

    bool looksLike(const Shown& other) const {
      return cells == other.cells && colour == other.colour && row.code == other.row.code;
    }
  };

  bool hasSameAirports(const std::vector<Shown>& rows) const;

  std::vector<Shown> rows_;
};

} // namespace soran
