// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/look.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  // The accessibility test runs some of these on a display.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  soran::dressApplication(app);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
