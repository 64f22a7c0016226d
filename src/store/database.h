// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

struct sqlite3;

namespace soran {

/// An operation of the store failed; `what` tells why.
class StoreError : public std::runtime_error {
 public:
  enum class Kind {
    Busy,         ///< another process holds the file; it is as whole as it was
    NoPermission, ///< the file or its folder may not be read or written
    NoSpace,      ///< the disk is full
    InputOutput,  ///< the file could not be opened, read or written for another reason
    Corrupt,      ///< the file was read and is damaged
    NotPlain,     ///< a link, a folder or the like stands in its place, or in that of its journal
    NotADatabase, ///< the file was read and is no database under the program's key
    Other,        ///< the operation does not fit the tables, or the program itself refused it
  };

  explicit StoreError(const std::string& what) : std::runtime_error(what) {}
  StoreError(const std::string& what, Kind kind) : std::runtime_error(what), kind_(kind) {}
  /// `code` is the library's extended result code.
  StoreError(const std::string& what, int code);

  Kind kind() const { return kind_; }
  /// The library's extended result code, 0 where it gave none.
  int code() const { return code_; }

 private:
  Kind kind_ = Kind::Other;
  int code_ = 0;
};

/// One encrypted database file. Every operation throws StoreError where it fails.
class Database {
 public:
  enum class Mode {
    Existing, ///< the file must exist; opened read-only where it cannot be written
    Create,   ///< made where it does not exist
    Foreign, ///< of unknown make: opened read-only, without any journal beside it and with bounds on all that
             ///< it can make the library do; nothing but columns of plain tables can be read
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

  /// Hands the rows of a query over one by one.
  void forEachRow(const QString& statement, const std::function<void(const QVariantList&)>& take) const;

  /// The column names of a table, empty where there is no such table.
  QStringList columns(const QString& table) const;

  /// From here on a commit trusts the file system to tell a file's new length behind its bytes, and waits for
  /// the disk three times and not four: for counts, which nobody entered.
  void commitLightly() const;

  /// The rowid of the row inserted last.
  qint64 lastRowId() const;

  /// Attaches a file that does not exist yet, or is empty, as `name` with the same password.
  void attach(const QString& path, const QString& name);

 private:
  /// Tells the library the parameters of a file whose key it has just got.
  void stateCipher(const QString& schema) const;

  struct Closer {
    void operator()(sqlite3* handle) const;
  };
  std::unique_ptr<int> turns_; // what a foreign file may still cost; outlives the connection
  std::unique_ptr<sqlite3, Closer> handle_;
};

/// A transaction that is rolled back unless it was committed.
class Transaction {
 public:
  enum class For {
    Writing, ///< waits for its turn at once
    Reading, ///< several queries that take the file's lock once; needs no commit
  };

  explicit Transaction(Database& database, For purpose = For::Writing);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();

 private:
  Database& database_;
  bool open_ = true;
};

/// Why a file of the user's database cannot be used, with its name, for the user.
QString storeFailure(const StoreError& error, const QString& path);

/// A name of a table or a column as it stands in a statement.
QString quotedName(QStringView name);

} // namespace soran
