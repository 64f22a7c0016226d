// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QFileInfo>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  // Many small databases are made and thrown away; in memory none of them waits for a disk.
  const QFileInfo memory(QStringLiteral("/dev/shm"));
  if (memory.isDir() && memory.isWritable() && !qEnvironmentVariableIsSet("TMPDIR"))
    qputenv("TMPDIR", memory.filePath().toLocal8Bit());
  QCoreApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
