// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>
#include <memory>
#include <stdexcept>
#include <vector>

struct sqlite3;

namespace soran {

/// An operation of the store failed; `what` tells why.
class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Another process holds the file; it is as whole as it was.
class StoreBusy final : public StoreError {
 public:
  using StoreError::StoreError;
};

/// One encrypted database file. Every operation throws StoreError where it fails.
class Database {
 public:
  enum class Mode {
    Existing, ///< the file must exist; opened read-only where it cannot be written
    Create,   ///< made where it does not exist
  };

  Database() = default;
  Database(Database&&) noexcept = default;
  Database& operator=(Database&&) noexcept = default;

  /// Opens the file with the program's password and reads its first page, so that a damaged or foreign file
  /// fails here.
  void open(const QString& path, Mode mode = Mode::Existing);
  void close() { handle_.reset(); }
  bool isOpen() const { return handle_ != nullptr; }

  /// Runs one statement with its parameters and gives no rows back.
  void execute(const QString& statement, const QVariantList& parameters = {});

  /// The rows of a query, each a list of the columns' values. Text arrives as QString, bytes as QByteArray.
  std::vector<QVariantList> query(const QString& statement, const QVariantList& parameters = {}) const;

  /// The column names of a table, empty where there is no such table.
  QStringList columns(const QString& table) const;

  /// The rowid of the row inserted last.
  qint64 lastRowId() const;

  /// Attaches another file as `name` with the same password; made where it does not exist.
  void attach(const QString& path, const QString& name);

 private:
  struct Closer {
    void operator()(sqlite3* handle) const;
  };
  std::unique_ptr<sqlite3, Closer> handle_;
};

/// A transaction that is rolled back unless it was committed.
class Transaction {
 public:
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();

 private:
  Database& database_;
  bool open_ = true;
};

/// A name of a table or a column as it stands in a statement.
QString quotedName(QStringView name);

} // namespace soran
