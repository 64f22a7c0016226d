// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/row_set.h"

namespace soran {

using namespace Qt::StringLiterals;

void RowSet::open(Database& database) {
  close();
  const QStringList names = database.columns(table_);
  if (names.isEmpty())
    throw StoreError("no table " + table_.toStdString());
  QStringList quoted;
  for (const QString& name : names)
    quoted.append(name == largeColumn_ ? u"NULL"_s : quotedName(name));
  QString statement = u"SELECT rowid, "_s + quoted.join(u", ") + u" FROM " + quotedName(table_);
  if (!sortColumn_.isEmpty())
    statement += u" ORDER BY "_s + quotedName(sortColumn_);
  std::vector<QVariantList> found = database.query(statement);

  columns_ = names;
  for (int i = 0; i < names.size(); ++i)
    index_.insert(names[i], i);
  rows_.reserve(found.size());
  for (QVariantList& values : found) {
    const qint64 id = values.takeFirst().toLongLong();
    rows_.push_back({id, std::move(values)});
  }
  database_ = &database;
}

void RowSet::close() {
  database_ = nullptr;
  columns_.clear();
  index_.clear();
  rows_.clear();
  current_ = 0;
  cancelUpdate();
}

void RowSet::moveFirst() {
  cancelUpdate();
  current_ = 0;
}

void RowSet::moveNext() {
  cancelUpdate();
  if (current_ < rows_.size())
    ++current_;
}

int RowSet::columnIndex(QStringView column) const {
  return index_.value(column.toString(), -1);
}

QVariant RowSet::value(QStringView column) const {
  const int i = columnIndex(column);
  if (i < 0)
    return {};
  if (const auto pending = pending_.constFind(i); pending != pending_.cend())
    return *pending;
  return !adding_ && current_ < rows_.size() ? stored(rows_[current_], i) : QVariant();
}

QVariant RowSet::stored(const Row& row, int column) const {
  if (!isLeftInFile(column))
    return row.values[column];
  const auto found = database_->query(u"SELECT "_s + quotedName(largeColumn_) + u" FROM " +
                                          quotedName(table_) + u" WHERE rowid = ?",
                                      {row.id});
  return found.empty() ? QVariant() : found.front().front();
}

QVariant RowSet::valueAt(int index, QStringView column) const {
  const int i = columnIndex(column);
  return i >= 0 && index >= 0 && index < recordCount() ? stored(rows_[size_t(index)], i) : QVariant();
}

void RowSet::setValue(QStringView column, const QVariant& value) {
  const int i = columnIndex(column);
  if (i < 0)
    throw StoreError("no column " + column.toString().toStdString() + " in " + table_.toStdString());
  if (eof())
    throw StoreError("no current row in " + table_.toStdString());
  pending_.insert(i, value);
}

void RowSet::addNew() {
  cancelUpdate();
  adding_ = true;
}

void RowSet::update() {
  if (!database_)
    throw StoreError("not open: " + table_.toStdString());
  if (pending_.isEmpty())
    return;
  const QHash<int, QVariant> changes = pending_;
  const bool isNew = adding_;
  QStringList names;
  QStringList marks;
  QVariantList values;
  for (auto i = changes.cbegin(); i != changes.cend(); ++i) {
    const QString name = quotedName(columns_[i.key()]);
    names.append(isNew ? name : name + u" = ?");
    marks.append(u"?"_s);
    values.append(i.value());
  }
  cancelUpdate();
  if (isNew) {
    database_->execute(u"INSERT INTO "_s + quotedName(table_) + u" (" + names.join(u", ") + u") VALUES (" +
                           marks.join(u", ") + u")",
                       values);
    rows_.push_back({database_->lastRowId(), QVariantList(columns_.size())});
    current_ = rows_.size() - 1;
  } else {
    values.append(rows_[current_].id);
    database_->execute(u"UPDATE "_s + quotedName(table_) + u" SET " + names.join(u", ") + u" WHERE rowid = ?",
                       values);
  }
  for (auto i = changes.cbegin(); i != changes.cend(); ++i) {
    if (!isLeftInFile(i.key()))
      rows_[current_].values[i.key()] = i.value();
  }
}

void RowSet::cancelUpdate() {
  pending_.clear();
  adding_ = false;
}

} // namespace soran
