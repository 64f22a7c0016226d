// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/printing.h"

#include "runs/run_bench.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString header =
    u"*** WEATHER OBSERVATION AND FORECASTS ***   SORAN 4.31   2026/11/24   14:20:00\r\n"_s;

class PrintingTest : public ::testing::Test {
 protected:
  PrintingTest() {
    world.prepare();
    EXPECT_TRUE(run.begin());
    run.program.console.setPanel(2, u"元"_s);
    run.desk.printers.names = {u"TOWER"_s, u"OFFICE"_s};
  }
  Settings& settings() { return run.program.settings(); }
  QByteArray saved(const QString& name) const { return contents(world.path(name)); }

  World world;
  RunBench run{world};
};

} // namespace

TEST_F(PrintingTest, PrintsByTheUser) {
  settings().store(key::印刷文字のサイズ, 9);
  settings().store(key::印刷文字のボールド, true);
  settings().store(key::印刷時刻指定, true); // never looked at here
  settings().store(key::印刷終了時, u"00"_s);
  const QStringList cancelled = {u"PRINT COMMAND"_s, u"CANCEL PRINT COMMAND"_s};
  const QStringList printed = {u"PRINT COMMAND"_s, u"AUTO PRINT DATA SPOOL INTO *"_s, u"PRINT COMPLETED"_s};
  const QStringList failed = {u"PRINT COMMAND"_s, u"AUTO PRINT DATA SPOOL INTO *"_s,
                              u"CANCEL PRINT COMMAND"_s};
  const struct {
    const char* name;
    bool dialog;
    QStringList printers;
    std::optional<QString> choice;
    QString printer; ///< empty where nothing is printed
    QString shown;
    QStringList log;
  } cases[] = {
      {"cancelled", true, {u"TOWER"_s}, {}, {}, u"\r\nCANCEL PRINT"_s, cancelled},
      {"no printer", true, {}, {}, {}, u"\r\nCANCEL PRINT"_s, cancelled},
      {"no printer, no dialogue", false, {}, {}, {}, {}, failed},
      {"first installed",
       false,
       {u"TOWER"_s, u"OFFICE"_s},
       {},
       u"TOWER"_s,
       u"\r\nPRINT COMPLETED"_s,
       printed},
      {"chosen",
       true,
       {u"TOWER"_s, u"OFFICE"_s},
       u"OFFICE"_s,
       u"OFFICE"_s,
       u"\r\nPRINT COMPLETED"_s,
       printed},
      {"chosen before", false, {u"TOWER"_s, u"OFFICE"_s}, {}, u"OFFICE"_s, u"\r\nPRINT COMPLETED"_s, printed},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    settings().store(key::印刷時ダイアログ, c.dialog);
    run.desk.printers.names = c.printers;
    run.desk.dialogs.choices.clear();
    if (c.choice)
      run.desk.dialogs.choices.push_back(c.choice);
    const QString before = run.screen();
    run.printing.printScreen();
    EXPECT_EQ(run.shown(), c.shown);
    EXPECT_EQ(run.logged(), c.log);
    EXPECT_EQ(run.panel2(), u"元");
    const QList<PrintJob> jobs = run.desk.takeSeen().prints;
    ASSERT_EQ(jobs.size(), c.printer.isEmpty() ? 0 : 1);
    if (!c.printer.isEmpty()) {
      EXPECT_EQ(jobs[0].printer, c.printer);
      EXPECT_EQ(jobs[0].text, header + before);
      EXPECT_EQ(jobs[0].font, u"ＭＳ ゴシック");
      EXPECT_EQ(jobs[0].size, 9);
      EXPECT_TRUE(jobs[0].bold);
    }
  }
}

TEST_F(PrintingTest, PrintsAutomaticallyWithinItsWindow) {
  const QString schedule = u"AUTO PRINT DISABLED / OUT OF PRINT SCHEDULE"_s;
  const QString missing = u"AUTO PRINT DISABLED / NOT FOUND PRINTER"_s;
  const struct {
    const char* name;
    QString now;
    bool window;
    QString from; ///< HHMM
    QString to;
    QString printer;
    QString refusal; ///< empty where it prints
  } cases[] = {
      {"no window", u"03:00:00"_s, false, u"0800"_s, u"2000"_s, u"OFFICE"_s, {}},
      {"at the start", u"08:00:00"_s, true, u"0800"_s, u"2000"_s, u"OFFICE"_s, {}},
      {"at the end", u"20:00:59"_s, true, u"0800"_s, u"2000"_s, u"OFFICE"_s, {}},
      {"before", u"07:59:59"_s, true, u"0800"_s, u"2000"_s, u"OFFICE"_s, schedule},
      {"behind", u"20:01:00"_s, true, u"0800"_s, u"2000"_s, u"OFFICE"_s, schedule},
      {"over midnight", u"23:00:00"_s, true, u"2200"_s, u"0500"_s, u"OFFICE"_s, schedule},
      {"none chosen", u"12:00:00"_s, true, u"0800"_s, u"2000"_s, u"*"_s, missing},
      {"not installed", u"12:00:00"_s, false, u"0800"_s, u"2000"_s, u"GONE"_s, missing},
  };
  settings().store(key::印刷時ダイアログ, true);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    world.clock = SetClock(QDateTime::fromString(u"2026-11-24T" + c.now + u"+09:00", Qt::ISODate));
    settings().store(key::印刷時刻指定, c.window);
    settings().store(key::印刷開始時, c.from.left(2));
    settings().store(key::印刷開始分, c.from.mid(2));
    settings().store(key::印刷終了時, c.to.left(2));
    settings().store(key::印刷終了分, c.to.mid(2));
    settings().store(key::プリンター, c.printer);
    const QString behind = run.printing.printScreen(Printing::Cause::Cycle);
    const bool refused = !c.refusal.isEmpty();
    EXPECT_EQ(behind, crlf + (refused ? c.refusal : u"AUTO PRINT COMPLETED"_s) + u' ' + c.now + crlf);
    EXPECT_EQ(run.logged(),
              (QStringList{u"PRINT COMMAND"_s, refused ? c.refusal : u"AUTO PRINT COMPLETED TO OFFICE"_s}));
    EXPECT_EQ(run.shown(), QString());
    EXPECT_EQ(run.panel2(), u"元");
    const Desk::Seen seen = run.desk.takeSeen();
    EXPECT_EQ(seen.prints.size(), refused ? 0 : 1);
    EXPECT_TRUE(seen.dialogs.isEmpty());
  }
  // The next print is the user's again, with its dialogue.
  run.printing.printScreen();
  EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs), QStringList{u"printerselect"_s});
}

TEST_F(PrintingTest, SavesTheScreenAsText) {
  const QString start = run.screen();
  const QByteArray stamp = "\r\n2026/11/24 14:20:00\r\n";
  const QString completed = u"\r\nFILE SAVE COMPLETED"_s + ready + crlf;
  const QString cancelled = u"\r\nCANCEL FILE SAVE"_s + ready + crlf;
  const auto save = [&](const std::optional<QString>& choice, std::deque<bool> answers = {}) {
    run.desk.dialogs.choices = {choice};
    run.desk.dialogs.answers = std::move(answers);
    run.shown();
    run.logged();
    run.printing.saveScreen();
  };
  save(std::nullopt);
  EXPECT_EQ(run.shown(), cancelled);
  EXPECT_EQ(run.logged(), (QStringList{u"FILE SAVE COMMAND"_s, u"CANCEL FILE SAVE COMMAND"_s}));

  QString before = run.screen();
  save(u"晴れ"_s);
  EXPECT_EQ(run.shown(), completed);
  EXPECT_EQ(run.logged(), (QStringList{u"FILE SAVE COMMAND"_s, u"FILE SAVE COMPLETED"_s}));
  EXPECT_EQ(saved(u"晴れ.txt"_s), before.toUtf8() + stamp);
  EXPECT_TRUE(run.desk.takeSeen().dialogs.isEmpty());

  const QByteArray former = saved(u"晴れ.txt"_s);
  save(u"晴れ.txt"_s, {false});
  EXPECT_EQ(run.shown(), cancelled);
  EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs),
            QStringList{u"晴れ.txt はすでに存在します  \r\r上書きしますか？　　"_s});
  EXPECT_EQ(saved(u"晴れ.txt"_s), former);
  before = run.screen();
  save(world.path(u"晴れ.txt"_s), {true});
  EXPECT_EQ(run.shown(), completed);
  EXPECT_EQ(saved(u"晴れ.txt"_s), before.toUtf8() + stamp);

  for (const QString& nowhere : {u"no/such/folder/x.txt"_s, QString()}) {
    save(nowhere, {true});
    EXPECT_EQ(run.shown(), cancelled);
    EXPECT_EQ(run.logged().last(), u"CANCEL FILE SAVE COMMAND");
  }
}
