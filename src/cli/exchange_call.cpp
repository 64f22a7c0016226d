// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/exchange_call.h"

#include "base/file_lock.h"
#include "base/files.h"
#include "forms/exchange.h"
#include "store/json_fields.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Runs `work` on the closed program's tables.
int withTables(const LaunchOptions& options, StandardStream& errors,
               const std::function<void(Tables&)>& work) {
  const QString directory = programDirectory(options);
  const QString database = directory + u"/soran.mdb";
  FileLock lock(directory + u"/soran.lock");
  QString why;
  try {
    if (!fileExists(database))
      throw InputError(database + u": データベースがありません。SORAN を一度起動すると作られます");
    if (lock.take() == FileLock::Result::Held)
      throw InputError(u"SORAN はすでに起動しています"_s);
    Tables tables;
    tables.openAllTables(database);
    work(tables);
    return 0;
  } catch (const StoreError& e) {
    why = storeFailure(e, database);
  } catch (const std::runtime_error& e) {
    why = QString::fromUtf8(e.what());
  }
  errors.tell(u"soran-cli: "_s + why + u'\n');
  return 1;
}

} // namespace

int exportCall(const LaunchOptions& options, const QString& file, StandardStream& errors) {
  return withTables(options, errors, [&file](Tables& tables) {
    if (const FileFault fault = replaceWhole(file, exportedData(tables), true, Links::Followed);
        fault != FileFault::None)
      throw InputError(u"cannot write "_s + file + u": " + faultLine(fault));
  });
}

int importCall(const LaunchOptions& options, const QString& file, StandardStream& errors) {
  return withTables(options, errors, [&file](Tables& tables) {
    if (const FileFault fault = readPlainFile(file, largestListFile, Links::Followed).fault;
        fault != FileFault::None)
      throw InputError(u"cannot read "_s + file + u": " + faultLine(fault, largestListFile));
    importFile(tables, file);
  });
}

} // namespace soran
