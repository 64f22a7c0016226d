// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "updater/module.h"

#include "start/hand_over.h"
#include "update/update_log.h"
#include "update/updater.h"

#include <QCoreApplication>
#include <QDir>
#include <algorithm>
#include <cstdio>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* helpText = "soran-update: SORAN を新しいバージョンに更新します\n\n"
                                 "  --home DIR        プログラムのディレクトリ (データベース、ログ)\n"
                                 "  --endpoints FILE  エンドポイント設定ファイル\n"
                                 "  --program PATH    SORAN のプログラム\n"
                                 "  --help            この説明\n"
                                 "  --version         バージョン\n\n"
                                 "指定がなければ、このモジュールのあるディレクトリを使います\n";

/// What the program looks for in a module's bytes, to take none that is older than the one before.
constexpr const char* versionLine = "soran-update " SORAN_MODULE_VERSION "\n";

struct Arguments {
  UpdateJob job;
  bool help = false;
  bool version = false;
  QString error;
};

QString absolute(const QString& path) {
  return path.isEmpty() ? QString() : QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

Arguments readArguments(const QStringList& words) {
  Arguments arguments;
  UpdateJob& job = arguments.job;
  const std::pair<QString, QString*> values[] = {
      {u"--home"_s, &job.home}, {u"--endpoints"_s, &job.endpointsFile}, {u"--program"_s, &job.program}};
  for (qsizetype i = 0; i < words.size() && arguments.error.isEmpty(); ++i) {
    const auto* value = std::find_if(std::begin(values), std::end(values),
                                     [&](const auto& option) { return option.first == words[i]; });
    if (value != std::end(values) && i + 1 < words.size())
      *value->second = absolute(words[++i]);
    else if (words[i] == u"--help")
      arguments.help = true;
    else if (words[i] == u"--version")
      arguments.version = true;
    else
      arguments.error = u"soran-update: 使えない引数です: " + words[i];
  }
  return arguments;
}

/// What was not given comes from the program that handed over, and else from the module's own place.
void complete(UpdateJob& job) {
  if (job.home.isEmpty())
    job.home = QCoreApplication::applicationDirPath();
  if (job.endpointsFile.isEmpty())
    job.endpointsFile = qEnvironmentVariable(handOverEndpoints);
  if (job.program.isEmpty())
    job.program = qEnvironmentVariable(handOverProgram);
  if (job.program.isEmpty())
    job.program = QCoreApplication::applicationDirPath() + u"/soran";
}

bool startAgain(const UpdateJob& job, Updater::Outcome outcome) {
  QStringList arguments = {u"--home"_s, job.home};
  if (!job.endpointsFile.isEmpty())
    arguments += {u"--endpoints"_s, job.endpointsFile};
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove(QString::fromLatin1(handOverEndpoints));
  environment.remove(QString::fromLatin1(handOverProgram));
  environment.insert(QString::fromLatin1(updateOutcome),
                     outcome == Updater::Outcome::Failed ? u"failed"_s : u"done"_s);
  const QString inPlace = QString::fromLatin1(handOverInPlace);
  const HandOver where = environment.contains(inPlace) ? HandOver::InPlace : HandOver::Beside;
  environment.remove(inPlace);
  return startProgram(job.program, arguments, environment, where);
}

} // namespace

int runModule(const QStringList& arguments, const QByteArray& publicKey) {
  constexpr int badArguments = 2;
  Arguments given = readArguments(arguments);
  if (!given.error.isEmpty()) {
    std::fputs(QString(given.error + u'\n').toUtf8().constData(), stderr);
    return badArguments;
  }
  if (given.help || given.version) {
    std::fputs(given.help ? helpText : versionLine, stdout);
    return 0;
  }
  complete(given.job);
  given.job.publicKey = publicKey;
  const UpdateLog log(given.job.home);
  const Updater::Outcome outcome = Updater(given.job, [&log](const QString& line) { log.tell(line); }).run();
  // A user whose program closed for an update gets it back, whatever came of the update.
  if (outcome != Updater::Outcome::StillRunning && !startAgain(given.job, outcome))
    log.tell(u"SORAN を起動できません: " + given.job.program);
  return outcome == Updater::Outcome::Updated || outcome == Updater::Outcome::Current ? 0 : 1;
}

} // namespace soran
