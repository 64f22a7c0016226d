// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/database.h"

#include "base/foreign_text.h"
#include "base/plain_file.h"
#include "store/cipher.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>
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

// The library asks after so many instructions, and is told to stop when the turns are used up: a hundred
// times what the delivered database takes.
constexpr int instructionsATurn = 10'000;
constexpr int mostTurns = 5'000;

int isUsedUp(void* turns) {
  int& left = *static_cast<int*>(turns);
  return --left < 0 ? 1 : 0;
}

/// Bounds what a statement, or the text of a schema, can ask for.
void confine(sqlite3* handle, int& turns) {
  constexpr struct {
    int id;
    int most;
  } limits[] = {
      {SQLITE_LIMIT_LENGTH, 8 << 20}, // a row of several values
      {SQLITE_LIMIT_SQL_LENGTH, 64 << 10},   {SQLITE_LIMIT_COLUMN, 500},
      {SQLITE_LIMIT_EXPR_DEPTH, 20},         {SQLITE_LIMIT_COMPOUND_SELECT, 1},
      {SQLITE_LIMIT_FUNCTION_ARG, 4},        {SQLITE_LIMIT_ATTACHED, 0},
      {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 0}, {SQLITE_LIMIT_VARIABLE_NUMBER, 0},
      {SQLITE_LIMIT_TRIGGER_DEPTH, 0},       {SQLITE_LIMIT_WORKER_THREADS, 0},
  };
  for (const auto& limit : limits)
    sqlite3_limit(handle, limit.id, limit.most);
#ifdef SQLITE_DBCONFIG_DEFENSIVE
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
#endif
#ifdef SQLITE_DBCONFIG_TRUSTED_SCHEMA
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
#endif
  sqlite3_progress_handler(handle, instructionsATurn, isUsedUp, &turns);
}

/// Allows the reading of columns, unless a view or a trigger does it, and what tells of tables and indexes.
int allowPlainReading(void*, int action, const char* first, const char*, const char*, const char* through) {
  switch (action) {
  case SQLITE_SELECT:
  case SQLITE_READ:
    return through ? SQLITE_DENY : SQLITE_OK;
  case SQLITE_PRAGMA:
    for (const char* allowed : {"table_info", "table_xinfo", "index_list", "index_xinfo"}) {
      if (qstricmp(first, allowed) == 0)
        return SQLITE_OK;
    }
    return SQLITE_DENY;
  default:
    return SQLITE_DENY;
  }
}

/// The address under which the library takes a file as it is: locks, journals and logs beside it do not
/// count.
QByteArray addressAsItIs(const QString& path) {
  return "file:" + QUrl::toPercentEncoding(path, "/") + "?immutable=1";
}

/// A start prepares some thirty statements: the library's counting of its memory, and its stock of small
/// pieces for long work, would cost it more than they give.
void keepLibrarySmall() {
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 128, 40);
}

} // namespace

StoreError::StoreError(const std::string& what, int code)
    : std::runtime_error(what), kind_(kindOf(code)), code_(code) {}

void Database::Closer::operator()(sqlite3* handle) const {
  sqlite3_close_v2(handle);
}

void Database::open(const QString& path, Mode mode) {
  // The library follows links, and makes a database out of nothing behind one.
  for (const QStringView journal : {u"", u"-journal", u"-wal"}) {
    if (replaceable(path + journal) == FileFault::NotPlain)
      throw StoreError("no plain file", StoreError::Kind::NotPlain);
  }
  // What the library makes would be everybody's to read.
  if (mode == Mode::Create && !QFileInfo::exists(path))
    QFile(path).open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner);
  sqlite3* raw = nullptr;
  static const bool isSmall = (keepLibrarySmall(), true);
  Q_UNUSED(isSmall);
  const bool isForeign = mode == Mode::Foreign;
  // A connection stays in one thread.
  const int flags = SQLITE_OPEN_NOMUTEX |
                    (isForeign ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI
                               : SQLITE_OPEN_READWRITE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0));
  const QByteArray name = isForeign ? addressAsItIs(path) : QFile::encodeName(path);
  const int result = sqlite3_open_v2(name.constData(), &raw, flags, nullptr);
  handle_.reset(raw);
  if (result != SQLITE_OK) {
    handle_.reset();
    throw StoreError("cannot open the database", result);
  }
  try {
    sqlite3_busy_timeout(raw, 2000);
    if (isForeign) {
      turns_ = std::make_unique<int>(mostTurns);
      confine(raw, *turns_);
    }
    query(u"PRAGMA key = "_s + cipher::key());
    stateCipher(u"main"_s);
    query(u"SELECT count(*) FROM sqlite_master"_s);
    if (isForeign)
      sqlite3_set_authorizer(raw, allowPlainReading, nullptr);
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

void Database::forEachRow(const QString& statement,
                          const std::function<void(const QVariantList&)>& take) const {
  Statement s(handle_.get(), statement, {});
  while (s.step())
    take(s.row());
}

QStringList Database::columns(const QString& table) const {
  QStringList names;
  for (const QVariantList& row : query(u"PRAGMA table_info("_s + quotedName(table) + u")"))
    names.append(row[1].toString());
  return names;
}

void Database::commitLightly() const {
  query(u"PRAGMA synchronous = NORMAL"_s);
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

Transaction::Transaction(Database& database, For purpose) : database_(database) {
  database_.execute(purpose == For::Writing ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s);
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

QString storeFailure(const StoreError& error, const QString& path) {
  using enum StoreError::Kind;
  const auto reason = [&]() -> QString {
    switch (error.kind()) {
    case Busy:
      return u"他のプログラムが使用中です"_s;
    case NoPermission:
      return u"読み書きする権限がありません"_s;
    case NoSpace:
      return u"ディスクの空き容量がありません"_s;
    case InputOutput:
      return u"読み書きできません"_s;
    case Corrupt:
      return u"壊れています"_s;
    case NotPlain:
      return faultText(FileFault::NotPlain);
    case NotADatabase:
      return cipher::isDatabaseOfAnotherFormat(path) ? u"形式が異なります"_s
                                                     : u"データベースではありません"_s;
    case Other:
      break;
    }
    return u"このプログラムのデータベースとして使えません"_s;
  };
  return path + u": " + reason();
}

QString quotedName(QStringView name) {
  return u'"' + name.toString().replace(u'"', u"\"\""_s) + u'"';
}

} // namespace soran
