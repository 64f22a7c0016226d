// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/database.h"

#include "base/foreign_text.h"
#include "store/cipher.h"

#include <QFile>
#include <sqlite3.h>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

StoreError::Kind kindOf(int code) {
  using enum StoreError::Kind;
  switch (code & 0xFF) {
  case SQLITE_BUSY:
  case SQLITE_LOCKED:
    return Busy;
  case SQLITE_PERM:
  case SQLITE_READONLY:
  case SQLITE_AUTH:
    return NoPermission;
  case SQLITE_FULL:
    return NoSpace;
  case SQLITE_CANTOPEN:
  case SQLITE_IOERR:
  case SQLITE_NOMEM:
    return InputOutput;
  case SQLITE_CORRUPT:
    return Corrupt;
  case SQLITE_NOTADB:
    return NotADatabase;
  default:
    return Other;
  }
}

[[noreturn]] void fail(sqlite3* handle, const char* what) {
  if (!handle)
    throw StoreError(std::string(what) + ": no connection");
  throw StoreError(std::string(what) + ": " + sqlite3_errmsg(handle), sqlite3_extended_errcode(handle));
}

class Statement {
 public:
  Statement(sqlite3* handle, const QString& text, const QVariantList& parameters) : handle_(handle) {
    const QByteArray utf8 = text.toUtf8();
    if (!handle ||
        sqlite3_prepare_v2(handle, utf8.constData(), int(utf8.size()), &statement_, nullptr) != SQLITE_OK)
      fail(handle, "prepare");
    if (sqlite3_bind_parameter_count(statement_) != parameters.size()) {
      sqlite3_finalize(statement_);
      throw StoreError("a row of the wrong length");
    }
    for (int i = 0; i < parameters.size(); ++i)
      bind(i + 1, parameters[i]);
  }
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  bool step() {
    const int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
      fail(handle_, "step");
    return result == SQLITE_ROW;
  }

  QVariantList row() const {
    QVariantList values;
    const int count = sqlite3_column_count(statement_);
    values.reserve(count);
    for (int i = 0; i < count; ++i)
      values.append(column(i));
    return values;
  }

 private:
  void bind(int index, const QVariant& value) {
    int result = SQLITE_OK;
    if (value.isNull()) {
      result = sqlite3_bind_null(statement_, index);
    } else if (value.typeId() == QMetaType::QByteArray) {
      const QByteArray bytes = value.toByteArray();
      result = sqlite3_bind_blob64(statement_, index, bytes.constData(), sqlite3_uint64(bytes.size()),
                                   SQLITE_TRANSIENT);
    } else if (value.typeId() == QMetaType::QString) {
      const QByteArray utf8 = value.toString().toUtf8();
      result = sqlite3_bind_text64(statement_, index, utf8.constData(), sqlite3_uint64(utf8.size()),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    } else if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float) {
      result = sqlite3_bind_double(statement_, index, value.toDouble());
    } else if (value.typeId() == QMetaType::Bool) {
      result = sqlite3_bind_int64(statement_, index, value.toBool() ? -1 : 0);
    } else {
      result = sqlite3_bind_int64(statement_, index, value.toLongLong());
    }
    if (result != SQLITE_OK)
      fail(handle_, "bind");
  }

  QVariant column(int i) const {
    switch (sqlite3_column_type(statement_, i)) {
    case SQLITE_INTEGER:
      return QVariant::fromValue<qlonglong>(sqlite3_column_int64(statement_, i));
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement_, i);
    case SQLITE_TEXT:
      // Whoever made the file may have written what misleads.
      return cleaned(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement_, i)),
                                       sqlite3_column_bytes(statement_, i)));
    case SQLITE_BLOB:
      return QByteArray(static_cast<const char*>(sqlite3_column_blob(statement_, i)),
                        sqlite3_column_bytes(statement_, i));
    default:
      return {};
    }
  }

  sqlite3* handle_;
  sqlite3_stmt* statement_ = nullptr;
};

} // namespace

StoreError::StoreError(const std::string& what, int code)
    : std::runtime_error(what), kind_(kindOf(code)), code_(code) {}

void Database::Closer::operator()(sqlite3* handle) const {
  sqlite3_close_v2(handle);
}

void Database::open(const QString& path, Mode mode) {
  sqlite3* raw = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
  const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &raw, flags, nullptr);
  handle_.reset(raw);
  if (result != SQLITE_OK) {
    handle_.reset();
    throw StoreError("cannot open the database", result);
  }
  try {
    sqlite3_busy_timeout(raw, 2000);
    query(u"PRAGMA key = "_s + cipher::key());
    stateCipher(u"main"_s);
    query(u"SELECT count(*) FROM sqlite_master"_s);
  } catch (...) {
    handle_.reset();
    throw;
  }
}

void Database::execute(const QString& statement, const QVariantList& parameters) {
  Statement s(handle_.get(), statement, parameters);
  while (s.step()) {
  }
}

std::vector<QVariantList> Database::query(const QString& statement, const QVariantList& parameters) const {
  Statement s(handle_.get(), statement, parameters);
  std::vector<QVariantList> rows;
  while (s.step())
    rows.push_back(s.row());
  return rows;
}

QStringList Database::columns(const QString& table) const {
  QStringList names;
  for (const QVariantList& row : query(u"PRAGMA table_info("_s + quotedName(table) + u")"))
    names.append(row[1].toString());
  return names;
}

qint64 Database::lastRowId() const {
  return sqlite3_last_insert_rowid(handle_.get());
}

void Database::attach(const QString& path, const QString& name) {
  execute(u"ATTACH DATABASE ? AS "_s + quotedName(name) + u" KEY " + cipher::key(), {path});
  stateCipher(quotedName(name));
}

void Database::stateCipher(const QString& schema) const {
  for (const QString& statement : cipher::parameters(schema))
    query(statement);
}

Transaction::Transaction(Database& database) : database_(database) {
  database_.execute(u"BEGIN IMMEDIATE"_s);
}

Transaction::~Transaction() {
  if (!open_)
    return;
  try {
    database_.execute(u"ROLLBACK"_s);
  } catch (const StoreError&) {
    // The engine has rolled back by itself where this fails.
  }
}

void Transaction::commit() {
  database_.execute(u"COMMIT"_s);
  open_ = false;
}

QString quotedName(QStringView name) {
  return u'"' + name.toString().replace(u'"', u"\"\""_s) + u'"';
}

} // namespace soran
