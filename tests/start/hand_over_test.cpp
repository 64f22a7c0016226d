// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/hand_over.h"

#include "fakes/updating.h"
#include "support/printing.h"

#include <QCoreApplication>
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
    writeWhole(desk.path(u"update.exe"_s),
               "#!/bin/sh\necho $# \"$SORAN_PROGRAM\" \"$SORAN_ENDPOINTS\" \"$SORAN_UPDATE_OUTCOME\" > part "
               "&& mv part report\n",
               true);
  }
  QString report() const {
    QElapsedTimer timer;
    timer.start();
    while (!fileExists(desk.path(u"report"_s)) && timer.elapsed() < 5000)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return QString::fromUtf8(desk.bytes(u"report"_s)).trimmed();
  }
  Updating desk;
};

} // namespace

TEST_F(HandOverTest, StartsTheModuleWithoutArguments) {
  qputenv(updateOutcome, "failed");
  const bool started = handOver(desk.services(), u"/etc/own.ini"_s);
  qunsetenv(updateOutcome);
  ASSERT_TRUE(started);
  EXPECT_EQ(report(), u"0 " + QCoreApplication::applicationFilePath() + u" /etc/own.ini");
  struct stat info {};
  ASSERT_EQ(::stat(QFile::encodeName(desk.path(u"update.exe"_s)).constData(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777U, 0700U);
}

TEST_F(HandOverTest, StartsNothingThatMayNotRun) {
  Services services = desk.services();
  services.endpoints.signedUpdates = true;
  EXPECT_FALSE(handOver(services, {}));
  EXPECT_FALSE(QFileInfo(desk.path(u"update.exe"_s)).isExecutable());
  QFile::remove(desk.path(u"update.exe"_s));
  services.endpoints.signedUpdates = false;
  EXPECT_FALSE(handOver(services, {}));
}
