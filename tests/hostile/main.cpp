// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostile/trial.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <cstdio>
#include <map>

using namespace soran;

/// soran-hostile TRIES SEED: plays misdeeds of an endpoint to the program and judges what it shows. Each try
/// has the seed behind that of the one before. Ends with 1 where something untrue was shown.
int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
  const QStringList given = QCoreApplication::arguments().mid(1);
  const int tries = given.value(0).toInt();
  const quint64 seed = given.value(1).toULongLong();
  if (given.size() != 2 || tries < 1) {
    std::fprintf(stderr, "usage: soran-hostile TRIES SEED\n");
    return 2;
  }
  constexpr int triesOfARun = 100;
  constexpr int renewals = 40; // one of so many tries
  int failures = 0;
  std::map<QString, int> played;
  std::unique_ptr<hostile::Trial> trial;
  for (int i = 0; i < tries; ++i) {
    hostile::Dice dice(seed + quint64(i));
    if (i % triesOfARun == 0 || !trial)
      trial = std::make_unique<hostile::Trial>();
    QString told;
    QString wrong;
    if (dice.below(renewals) == 0) {
      wrong = hostile::attemptRenewal(dice, told);
    } else {
      wrong = trial->attempt(dice);
      told = trial->told();
    }
    ++played[told.section(QStringLiteral(" at "), 0, 0)];
    if (wrong.isEmpty())
      continue;
    ++failures;
    std::printf("seed %llu: %s: %s\n", static_cast<unsigned long long>(seed + quint64(i)), qPrintable(told),
                qPrintable(wrong));
    trial.reset();
  }
  for (const auto& [misdeed, times] : played)
    std::printf("%6d %s\n", times, qPrintable(misdeed));
  std::printf("%d tries, %d failures\n", tries, failures);
  return failures == 0 ? 0 : 1;
}
