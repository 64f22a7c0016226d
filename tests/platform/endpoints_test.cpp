// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/endpoints.h"

#include "base/files.h"
#include "support/own_folder.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(Endpoints, AheadIsANumberWithinItsBounds) {
  OwnFolder folder;
  const struct {
    const char* line;
    int ahead;
  } cases[] = {
      {"", 2},
      {"ahead=", 0},
      {"ahead=0", 0},
      {"ahead=1", 1},
      {"ahead= 5 ", 5},
      {"ahead=8", 8},
      {"ahead=9", 8},
      {"ahead=-1", 0},
      {"ahead=-99999999999", 0},
      {"ahead=\"4\"", 4},
      {"ahead=many", 0},
      {"ahead=nan", 0},
      {"ahead=99999999999999999999", 8},
      {"ahead=3,4", 0},
  };
  Endpoints before;
  before.ahead = 2;
  EXPECT_EQ(Endpoints::builtIn(QString()).ahead, 0);
  int files = 0;
  for (const auto& c : cases) {
    // QSettings takes a file of the same size and second for the one it has read.
    const QString ini = folder.filePath(QString::number(++files));
    ASSERT_TRUE(writeWhole(ini, QByteArray("[endpoints]\n") + c.line + '\n'));
    const Endpoints read = before.overriddenBy(ini);
    EXPECT_EQ(read.ahead, c.ahead) << c.line;
    EXPECT_TRUE(read.others.isEmpty());
  }
}
