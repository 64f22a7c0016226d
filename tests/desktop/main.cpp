// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/look.h"

#include "support/own_folder.h"

#include <QApplication>
#include <QFile>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  // The accessibility test runs some of these on a display.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  // Qt would make a folder of a fixed name.
  const soran::OwnFolder runtime;
  if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  soran::dressApplication(app);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
