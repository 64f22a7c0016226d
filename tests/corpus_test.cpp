// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The files of tests/corpus, each through its target: what once failed must not fail again.

#include "readers.h"

#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class CorpusTest : public ::testing::TestWithParam<fuzz::Reader> {};

} // namespace

TEST_P(CorpusTest, HoldsItsPromises) {
  const QString folder = QString::fromUtf16(SORAN_SOURCE_DIR) + u"/tests/corpus/" +
                         QString::fromStdString(std::string(GetParam().name));
  int files = 0;
  for (QDirIterator i(folder, QDir::Files); i.hasNext(); ++files) {
    QFile file(i.next());
    SCOPED_TRACE(file.fileName().toStdString());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_NO_THROW(GetParam().target(file.readAll()));
  }
  EXPECT_GT(files, 5);
}

INSTANTIATE_TEST_SUITE_P(Readers, CorpusTest, ::testing::ValuesIn(fuzz::readers),
                         [](const auto& reader) { return std::string(reader.param.name); });
