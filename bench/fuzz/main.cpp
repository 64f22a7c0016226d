// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The libFuzzer program. The environment's READER names the target. A Finding that nobody catches ends it as
// a crash does.
#include "readers.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {
soran::fuzz::Target target = nullptr;
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  static const QCoreApplication app(*argc, *argv);
  const std::string name = qgetenv("READER").toStdString();
  const auto reader = std::ranges::find(soran::fuzz::readers, name, &soran::fuzz::Reader::name);
  if (reader == std::end(soran::fuzz::readers)) {
    std::fputs("READER names no target\n", stderr);
    std::exit(2);
  }
  target = reader->target;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  target({data, static_cast<qsizetype>(size)});
  return 0;
}
