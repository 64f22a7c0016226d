// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/settings_hooks.h"

#include "terminal/harness.h"

using namespace soran;
using namespace Qt::StringLiterals;

TEST(SettingsFormTest, TheTerminalFollowsTheClosedForm) {
  World world;
  world.prepare();
  ProgramRun run(world);
  ASSERT_TRUE(run.begin());
  run.desk.forms.onModal = [&run](const ModalForm& shown) {
    EXPECT_EQ(nameOf(shown), u"opton"_s);
    SettingsForm opton(run.program.settings(), run.program.services, settingsHooks(run.terminal));
    opton.setBuffer(4);
    opton.choose(9, u"1"_s);
    opton.pick(1, Colour{77});
    EXPECT_TRUE(opton.close());
    return ModalOutcome(opton.outcome().value());
  };
  run.terminal.menus().button(9);
  EXPECT_EQ(run.program.bufferLevel, 7);
  EXPECT_EQ(run.program.console.screen().baseColour(), Colour{77});
  EXPECT_TRUE(run.asked().contains(u"C/04"_s)); // the cycle files of the new window
}
