// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/hand_over.h"

#include "update/program_update.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QProcess>
#include <csignal>
#include <unistd.h>
#include <vector>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcHandOver, "soran.terminal")

bool startInPlace(const QString& program, const QStringList& arguments,
                  const QProcessEnvironment& environment) {
  const auto pointersTo = [](std::vector<QByteArray>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (QByteArray& text : texts)
      pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
  };
  std::vector<QByteArray> words = {QFile::encodeName(program)};
  for (const QString& argument : arguments)
    words.push_back(argument.toLocal8Bit());
  std::vector<QByteArray> variables;
  for (const QString& variable : environment.toStringList())
    variables.push_back(variable.toLocal8Bit());
  // What a program ignores, the one in its place ignores too.
  std::signal(SIGPIPE, SIG_DFL);
  ::execve(words[0].constData(), pointersTo(words).data(), pointersTo(variables).data());
  return false;
}

} // namespace

QString outcomeOfUpdate() {
  return qEnvironmentVariable(updateOutcome);
}

bool handOver(const Services& services, const QString& endpointsFile, HandOver where) {
  const QString module = services.path(u"update.exe");
  if (!ProgramUpdate::moduleMayRun(services)) {
    qCWarning(lcHandOver) << "passed over: the update module may not be run";
    return false;
  }
  // It came as data; only here does it become something that can be run.
  QFile::setPermissions(module, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove(QString::fromLatin1(updateOutcome));
  environment.insert(QString::fromLatin1(handOverProgram), QCoreApplication::applicationFilePath());
  if (!endpointsFile.isEmpty())
    environment.insert(QString::fromLatin1(handOverEndpoints),
                       QDir::current().absoluteFilePath(endpointsFile));
  if (where == HandOver::InPlace)
    environment.insert(QString::fromLatin1(handOverInPlace), u"1"_s);
  return startProgram(module, {}, environment, where, services.directory);
}

bool startProgram(const QString& program, const QStringList& arguments,
                  const QProcessEnvironment& environment, HandOver where, const QString& folder) {
  if (where == HandOver::InPlace)
    return startInPlace(program, arguments, environment);
  QProcess process;
  process.setProgram(program);
  process.setArguments(arguments);
  process.setWorkingDirectory(folder);
  process.setProcessEnvironment(environment);
  return process.startDetached();
}

} // namespace soran
