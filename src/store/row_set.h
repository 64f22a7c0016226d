// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/database.h"

#include <QHash>
#include <QVariant>

namespace soran {

/// A view of one table, held in memory, in the order of one column, with a current row that can be changed.
/// A column of large values may be left in the file: it is read from there each time it is asked for.
///
/// A change stays pending until `update`, which writes it to the file at once. Operations that fail throw
/// StoreError and leave the rows in memory as they were.
class RowSet {
 public:
  /// `sortColumn` empty keeps the table's own order. `largeColumn` is the one that is left in the file.
  RowSet(QString table, QString sortColumn, QString largeColumn = {})
      : table_(std::move(table)), sortColumn_(std::move(sortColumn)), largeColumn_(std::move(largeColumn)) {}

  /// Loads all rows and moves to the first. `database` must outlive the row set or its next opening.
  void open(Database& database);
  void close();
  bool isOpen() const { return database_ != nullptr; }

  const QString& table() const { return table_; }
  const QStringList& columns() const { return columns_; }
  int recordCount() const { return int(rows_.size()); }

  void moveFirst();
  void moveNext();
  /// Behind the last row; an empty set is there from the start.
  bool eof() const { return current_ >= rows_.size() && !adding_; }

  /// The field of the current row; null where the row or the column is missing.
  QVariant value(QStringView column) const;
  QString text(QStringView column) const { return value(column).toString(); }

  /// Sets a field of the current row or of the row begun by `addNew`; pending until `update`.
  void setValue(QStringView column, const QVariant& value);
  /// Begins a new row; it becomes the current one.
  void addNew();
  void update();
  /// Drops what is pending.
  void cancelUpdate();

  /// The length in bytes of a binary field, 0 where it is empty.
  qsizetype actualSize(QStringView column) const { return value(column).toByteArray().size(); }
  /// The first `size` bytes of a binary field.
  QByteArray getChunk(QStringView column, qsizetype size) const {
    return value(column).toByteArray().first(size);
  }
  /// Replaces the bytes of a binary field, pending until `update`.
  void appendChunk(QStringView column, const QByteArray& bytes) { setValue(column, bytes); }

  /// The value of a field in the row `index` (from 0).
  QVariant valueAt(int index, QStringView column) const;

 private:
  struct Row {
    qint64 id = 0;
    QVariantList values;
  };
  int columnIndex(QStringView column) const;
  bool isLeftInFile(int column) const { return columns_[column] == largeColumn_; }
  QVariant stored(const Row& row, int column) const;

  QString table_;
  QString sortColumn_;
  QString largeColumn_;
  Database* database_ = nullptr;
  QStringList columns_;
  QHash<QString, int> index_;
  std::vector<Row> rows_;
  size_t current_ = 0;
  bool adding_ = false;
  QHash<int, QVariant> pending_;
};

} // namespace soran
