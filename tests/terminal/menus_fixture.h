// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/commands_fixture.h"
#include "terminal/menus.h"

namespace soran {

using namespace Qt::StringLiterals;

inline const QString gapReady = ready + crlf;
inline const QString echo = crlf + ready;

class MenusTest : public ::testing::Test {
 protected:
  MenusTest() {
    world.prepare([](Tables& tables) {
      storeAirports(tables, {{u"RJTT"_s, u"東京"_s}, {u"RJAA"_s, u"成田"_s}});
      storeGroups(tables, {{u"TTAA"_s, u"RJTT RJAA"_s}, {u"NORTH"_s, u"RJAA"_s}});
      tables.settings().store(key::自動デコード有効, false);
      tables.settings().store(key::印刷時ダイアログ, false);
    });
    run.program.services.endpoints.others = {{u"yahoo"_s, u"http://yahoo"_s}, {u"ais"_s, u"http://ais"_s}};
    for (const QString& code : {u"RJTT"_s, u"RJAA"_s})
      world.report(code, u"05:00"_s, weather);
    started = run.begin();
    run.desk.printers.names = {u"OFFICE"_s};
  }
  Menus& menus() { return run.terminal.menus(); }
  std::optional<MenuItem> item(const QString& name, int index = 0) {
    for (const MenuItem& each : menus().items()) {
      if (each.name == name && each.index == index)
        return each;
    }
    return std::nullopt;
  }
  bool enabled(const QString& name) {
    const auto found = item(name);
    return found && found->visible && found->enabled;
  }
  bool buttonWorks(int index) {
    for (const ToolButton& each : menus().buttons()) {
      if (each.index == index)
        return each.visible && each.enabled;
    }
    return false;
  }

  World world;
  ProgramRun run{world};
  bool started = false;
};

inline QString joined(const QStringList& list) {
  return list.join(u'|');
}
} // namespace soran
