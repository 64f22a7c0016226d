// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "desktop/start.h"
#include "desktop/widgets/look.h"

#include <QApplication>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("soran"));
  soran::dressApplication(app);
  // A process of its own for each start of the window.
  if (QApplication::arguments().value(1) == soran::bench::startWord)
    return soran::bench::startWindow(QApplication::arguments().value(2));
  return soran::bench::runBenchmarks(argc, argv);
}
