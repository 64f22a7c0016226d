// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/harness.h"

namespace soran {

using namespace Qt::StringLiterals;

inline const QString weather = u"240500Z 33010KT 9999 FEW020 10/02 Q1020"_s;
inline const QString outlook = u"240500Z 2406/2512 33010KT 9999 FEW020\n     BECMG 2409/2411 36010KT"_s;

inline QString metarBlock(const QString& code, const QString& label = u"  METAR 1400I"_s) {
  return crlf + code + label + crlf + u"      " + weather + u'\n';
}
inline QString tafBlock(const QString& code) {
  return crlf + code + u"  TAF   1400I" + crlf +
         u"      240500Z 2406/2512 33010KT 9999 FEW020\n      BECMG   2409/2411 36010KT\n" + crlf;
}
inline QString manualTitle(const QString& list) {
  return u"*** " + list + u" - WEATHER OBSERVATION AND FORECASTS ***" + crlf;
}
inline QString notFound(const QString& code) {
  return crlf + code + u"  NOT FOUND" + crlf;
}

class CommandsTest : public ::testing::Test {
 protected:
  CommandsTest() {
    world.prepare([](Tables& tables) {
      storeGroups(tables,
                  {{u"TTAA"_s, u"RJTT RJAA"_s}, {u"NORTH"_s, u"RJTT ZZZZ"_s}, {u"CLS2"_s, u"RJAA"_s}});
      storeDictionary(tables, table::気象略語, {{u"QQA"_s, u"一"_s}, {u"QQB"_s, u"先"_s}});
      storeDictionary(tables, table::日本語解析, {{u"QQB"_s, u"後"_s}, {u"QQC"_s, u"二"_s}});
    });
    for (const QString& code : {u"RJTT"_s, u"RJAA"_s, u"RJBB"_s, u"RJCC"_s, u"RJFF"_s})
      world.report(code, u"05:00"_s, weather, outlook);
    world.report(u"RJSN"_s, u"05:00"_s, weather);
  }
  /// One line in a run that has just begun; the run stays for further looks.
  void enter(const QString& line) {
    run.shown();
    run.logged();
    run.asked();
    run.type(line);
  }

  World world;
  ProgramRun run{world};
};
} // namespace soran
