// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/hand_over.h"

#include "store/program_update.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QProcess>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcHandOver, "soran.terminal")

} // namespace

QString outcomeOfUpdate() {
  return qEnvironmentVariable(updateOutcome);
}

bool handOver(const Services& services, const QString& endpointsFile) {
  const QString module = services.path(u"update.exe");
  if (!ProgramUpdate::moduleMayRun(services)) {
    qCWarning(lcHandOver) << "passed over: the update module may not be run";
    return false;
  }
  // It came as data; only here does it become something that can be run.
  QFile::setPermissions(module, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QProcess process;
  process.setProgram(module);
  process.setWorkingDirectory(services.directory);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove(QString::fromLatin1(updateOutcome));
  environment.insert(QString::fromLatin1(handOverProgram), QCoreApplication::applicationFilePath());
  if (!endpointsFile.isEmpty())
    environment.insert(QString::fromLatin1(handOverEndpoints),
                       QDir::current().absoluteFilePath(endpointsFile));
  process.setProcessEnvironment(environment);
  return process.startDetached();
}

} // namespace soran
