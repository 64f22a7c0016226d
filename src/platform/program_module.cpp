// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/program_module.h"

#include <QCoreApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QPluginLoader>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcModule, "soran.module")

} // namespace

QObject* loadModule(const QString& name) {
  const QString folder = QCoreApplication::applicationDirPath() + u"/../lib/soran/plugins/"_s;
  QPluginLoader loader(QDir::cleanPath(folder + name));
  QObject* module = loader.instance();
  if (!module)
    qCWarning(lcModule) << "passed over: loading" << name << "-" << loader.errorString();
  return module;
}

} // namespace soran
