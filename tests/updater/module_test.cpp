// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "updater/module.h"

#include "fakes/release.h"
#include "http/endpoint_server.h"
#include "start/hand_over.h"
#include "support/printing.h"
#include "update/accepted_version.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <gmock/gmock.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::HasSubstr;

namespace {

/// A program that tells in a file how it was started, as `name` version.
QByteArray script(const QByteArray& name, const QString& report) {
  const QByteArray file = '\'' + report.toUtf8().replace("'", "'\\''") + '\'';
  return "#!/bin/sh\nfile=" + file + "\necho " + name +
         " $SORAN_UPDATE_OUTCOME $SORAN_PROGRAM \"$@\" > \"$file.part\" && mv \"$file.part\" \"$file\"\n";
}

class ModuleTest : public ::testing::Test {
 protected:
  ModuleTest() {
    EXPECT_TRUE(server.start());
    installation.setEndpoint(server.baseAddress());
    // The program is a script here, with the mode that it has.
    QFile file(program);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(script("former", report));
  }

  void offer(const QString& version, const TestKey& signer = TestKey()) {
    const Release release = Release::of(version, {{u"soran"_s, script("new", report)}});
    const QMap<QString, QByteArray> served = release.served(signer);
    for (auto i = served.cbegin(); i != served.cend(); ++i)
      server.setFile(i.key(), i.value());
  }

  /// Runs the module to its end while the server answers.
  int run(const QString& module, const QStringList& arguments, const QString& handedOver = {}) {
    QFile::remove(report);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!handedOver.isEmpty())
      environment.insert(u"SORAN_PROGRAM"_s, handedOver);
    process.setProcessEnvironment(environment);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(60'000, &loop, &QEventLoop::quit);
    process.start(module, arguments);
    loop.exec();
    errors = QString::fromUtf8(process.readAllStandardError());
    output = QString::fromUtf8(process.readAllStandardOutput());
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  }

  /// What the program told that was started again, empty where none was.
  QString started() const {
    QElapsedTimer timer;
    timer.start();
    while (!fileExists(report) && timer.elapsed() < 5000)
      QEventLoop().processEvents(QEventLoop::AllEvents, 10);
    return QString::fromUtf8(bytesOf(report)).trimmed();
  }

  EndpointServer server;
  Installation installation;
  QString program = installation.at(u"soran"_s);
  QString report = installation.path(u"report"_s);
  QString errors;
  QString output;
};

const QString testModule = QStringView(SORAN_TEST_MODULE).toString();

} // namespace

TEST_F(ModuleTest, UpdatesAndStartsTheNewProgram) {
  offer(u"4.32"_s);
  EXPECT_EQ(run(testModule, {u"--home"_s, installation.home(), u"--program"_s, program}), 0)
      << errors.toStdString();
  EXPECT_EQ(started(), u"new done --home " + installation.home());
  EXPECT_EQ(bytesOf(program + u".former"), script("former", report));
  EXPECT_EQ(installation.storedVersion(), 0);
  const QString log = QString::fromUtf8(bytesOf(installation.home() + u"/update.log"));
  EXPECT_TRUE(log.contains(u"SORAN を Version 4.32 に更新しました"));
  EXPECT_TRUE(errors.contains(u"SORAN を Version 4.32 に更新しました"));
}

TEST_F(ModuleTest, OnATerminalTheNewProgramTakesItsPlace) {
  const Release release = Release::of(
      u"4.32"_s, {{u"soran"_s, "#!/bin/sh\necho \"$SORAN_UPDATE_OUTCOME$SORAN_IN_PLACE $@\"; exit 7\n"}});
  const QMap<QString, QByteArray> served = release.served(TestKey());
  for (auto i = served.cbegin(); i != served.cend(); ++i)
    server.setFile(i.key(), i.value());
  qputenv(handOverInPlace, "1");
  EXPECT_EQ(run(testModule, {u"--home"_s, installation.home(), u"--program"_s, program}), 7);
  qunsetenv(handOverInPlace);
  EXPECT_EQ(output, u"done --home " + installation.home() + u'\n');
}

TEST_F(ModuleTest, GivesTheFormerProgramBackWhereTheUpdateFails) {
  offer(u"4.32"_s, TestKey(2));
  const QString endpoints = installation.path(u"other.ini"_s);
  writeWhole(endpoints, bytesOf(installation.home() + u"/endpoints.ini"));
  EXPECT_EQ(run(testModule,
                {u"--home"_s, installation.home(), u"--program"_s, program, u"--endpoints"_s, endpoints}),
            1);
  EXPECT_EQ(started(), u"former failed --home " + installation.home() + u" --endpoints " + endpoints);
  EXPECT_TRUE(errors.contains(u"更新情報の署名が正しくありません"));
  EXPECT_EQ(installation.storedVersion(), 4.31);
}

TEST_F(ModuleTest, WithoutArgumentsItWorksWhereItLies) {
  offer(u"4.32"_s);
  const QString module = installation.home() + u"/update.exe";
  ASSERT_TRUE(QFile::copy(testModule, module));
  // The program that hands over tells where it lies itself.
  EXPECT_EQ(run(module, {}, program), 0) << errors.toStdString();
  EXPECT_EQ(started(), u"new done --home " + installation.home());
  // Without that the program beside the module is meant.
  ASSERT_TRUE(QFile::copy(program, installation.home() + u"/soran"));
  offer(u"4.33"_s);
  EXPECT_EQ(run(module, {}), 0) << errors.toStdString();
  EXPECT_EQ(bytesOf(installation.home() + u"/update.version"), "4.33\n");
  EXPECT_EQ(started(), u"new done --home " + installation.home());
}

TEST_F(ModuleTest, RefusesUnusableArguments) {
  for (const QStringList& arguments : {QStringList{u"--home"_s}, {u"--what"_s}, {u"word"_s}}) {
    EXPECT_EQ(run(testModule, arguments), 2);
    EXPECT_TRUE(errors.startsWith(u"soran-update: 使えない引数です")) << errors.toStdString();
  }
  EXPECT_EQ(run(testModule, {u"--version"_s}), 0);
  EXPECT_EQ(output, u"soran-update 4.31\n");
  EXPECT_EQ(moduleVersion(bytesOf(testModule)), u"4.31");
  EXPECT_EQ(run(testModule, {u"--help"_s}), 0);
  EXPECT_TRUE(output.contains(u"--endpoints FILE"));
  EXPECT_FALSE(fileExists(report));
}
