// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8_locale.h"
#include "fakes/test_key.h"
#include "updater/module.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
  soran::useUtf8();
  QCoreApplication app(argc, argv);
  return soran::runModule(QCoreApplication::arguments().mid(1), TestKey().publicKey);
}
