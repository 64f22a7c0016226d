// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/exchange_call.h"

#include "base/file_lock.h"
#include "base/files.h"
#include "forms/exchange.h"
#include "store/json_fields.h"

#include <QFile>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Runs `work` on the closed program's tables.
int withTables(const LaunchOptions& options, QIODevice& errors, const std::function<void(Tables&)>& work) {
  const QString directory = programDirectory(options);
  FileLock lock(directory + u"/soran.lock");
  try {
    if (lock.take() == FileLock::Result::Held)
      throw InputError(u"SORAN はすでに起動しています"_s);
    Tables tables;
    tables.openAllTables(directory + u"/soran.mdb");
    work(tables);
    return 0;
  } catch (const std::runtime_error& e) {
    errors.write(QByteArray("soran-cli: ") + e.what() + '\n');
    return 1;
  }
}

} // namespace

int exportCall(const LaunchOptions& options, const QString& file, QIODevice& errors) {
  return withTables(options, errors, [&file](Tables& tables) {
    if (!writeWhole(file, exportedData(tables), true))
      throw InputError(u"cannot write "_s + file);
  });
}

int importCall(const LaunchOptions& options, const QString& file, QIODevice& errors) {
  return withTables(options, errors, [&file](Tables& tables) {
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
      throw InputError(u"cannot read "_s + file);
    importData(tables, input.readAll());
  });
}

} // namespace soran
