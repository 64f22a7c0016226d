// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/hand_over.h"

#include "fakes/updating.h"
#include "support/printing.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class HandOverTest : public ::testing::Test {
 protected:
  HandOverTest() {
    const QByteArray module =
        "#!/bin/sh\necho $# \"$SORAN_PROGRAM\" \"$SORAN_ENDPOINTS\" \"$SORAN_UPDATE_OUTCOME\" > part "
        "&& mv part report\n";
    writeWhole(desk.path(u"update.exe"_s), module, true);
    services.copiedModule = QCryptographicHash::hash(module, QCryptographicHash::Sha256);
  }
  QString report() const {
    QElapsedTimer timer;
    timer.start();
    while (!fileExists(desk.path(u"report"_s)) && timer.elapsed() < 5000)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return QString::fromUtf8(desk.bytes(u"report"_s)).trimmed();
  }
  Updating desk;
  Services services = desk.services();
};

} // namespace

TEST_F(HandOverTest, StartsTheModuleWithoutArguments) {
  qputenv(updateOutcome, "failed");
  const bool started = handOver(services, u"/etc/own.ini"_s);
  qunsetenv(updateOutcome);
  ASSERT_TRUE(started);
  EXPECT_EQ(report(), u"0 " + QCoreApplication::applicationFilePath() + u" /etc/own.ini");
  struct stat info {};
  ASSERT_EQ(::stat(QFile::encodeName(desk.path(u"update.exe"_s)).constData(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777U, 0700U);
}

TEST_F(HandOverTest, StartsNothingThatMayNotRun) {
  services.endpoints.signedUpdates = true;
  EXPECT_FALSE(handOver(services, {}));
  EXPECT_FALSE(QFileInfo(desk.path(u"update.exe"_s)).isExecutable());
  QFile::remove(desk.path(u"update.exe"_s));
  services.endpoints.signedUpdates = false;
  writeWhole(desk.path(u"update.exe"_s), "left by an earlier run", true);
  EXPECT_FALSE(handOver(services, {}));
  QFile::remove(desk.path(u"update.exe"_s));
  EXPECT_FALSE(handOver(services, {}));
}
