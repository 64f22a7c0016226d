// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/window_fixture.h"

#include "support/turns.h"

#include <QElapsedTimer>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

struct RunToClose {
  const char* name;
  std::function<void(Desktop&, SteppedTimers&)> go;
  int fewestTurns;
};

void PrintTo(const RunToClose& run, std::ostream* out) {
  *out << run.name;
}

std::function<void(Desktop&, SteppedTimers&)> typing(const QString& line) {
  return [line](Desktop& desktop, SteppedTimers& /*timers*/) {
    QTest::keyClicks(&desktop.window().screen(), line);
    QTest::keyClick(&desktop.window().screen(), Qt::Key_Return);
  };
}

const RunToClose runs[] = {
    {"Typed", typing(u"RJTT ZZZZ"_s), 6},
    {"Japanese", typing(u"JP RJTT"_s), 2},
    {"Sequence", typing(u"SQ RJTT"_s), 2},
    {"Update", typing(u"UPDATE"_s), 3},
    {"Print", typing(u"/P"_s), 1},
    {"Cycle", [](Desktop& /*desktop*/, SteppedTimers& timers) { timers.step(); }, 8},
    {"CycleBelowThePane",
     [](Desktop& desktop, SteppedTimers& timers) {
       typing(u"HELP"_s)(desktop, timers);
       desktop.terminal().pane().pageState(BrowserPane::Loading::Started);
       timers.step();
     },
     8},
};

class CloseWindowTest : public WindowTest, public testing::WithParamInterface<RunToClose> {};

} // namespace

TEST_P(CloseWindowTest, AtEveryTurnOfTheEventLoopEndsTheRun) {
  int turn = 1;
  for (;; ++turn) {
    SCOPED_TRACE(turn);
    server_.setFile(u"/data/version.dat"_s, "4.31\n0.00\n0.00\n");
    start();
    Tables& tables = desktop_->terminal().program().tables;
    tables.rewrite(table::自動デコード, {{1, u"RJTT"_s, u"羽田"_s}});
    tables.settings().store(key::シーケンス時間, 1);
    server_.setFile(u"/data/version.dat"_s, "4.32\n0.00\n0.00\n");
    QString text;
    QMap<QString, QByteArray> files;
    bool closed = false;
    bool ended = false;
    AtTurn closing(turn, [&] {
      // With the pane up the first one closes the pane alone.
      desktop_->window().close();
      desktop_->window().close();
      ended = desktop_->terminal().ended();
      closed = true;
      text = shown();
      files = filesBelow(home_.path());
    });
    // An open question turns the loop only where something happens.
    QTimer heartbeat;
    heartbeat.start(10);
    QElapsedTimer time;
    time.start();
    GetParam().go(*desktop_, timers_);
    if (!closing.came())
      break;
    QTest::qWait(5);
    timers_.step();
    EXPECT_LT(time.elapsed(), 5000);
    ASSERT_TRUE(closed);
    EXPECT_TRUE(ended);
    EXPECT_EQ(shown(), text);
    EXPECT_TRUE(filesBelow(home_.path()) == files);
    EXPECT_FALSE(desktop_->window().isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    desktop_.reset();
    EXPECT_TRUE(isWholeDatabase(home_.filePath(u"soran.mdb"_s)));
    // A question waits turn after turn.
    if (turn >= 25)
      break;
  }
  EXPECT_GE(turn, GetParam().fewestTurns);
}

INSTANTIATE_TEST_SUITE_P(Close, CloseWindowTest, testing::ValuesIn(runs),
                         [](const auto& run) { return run.param.name; });

TEST_F(WindowTest, ShowsGarbageInTime) {
  const QByteArray head = "2026/11/24 05:00\nRJAA 240500Z ";
  const struct {
    const char* name;
    QByteArray body;
    QString shown; ///< in the place of line ends, which a text field knows in many forms, stands one
  } cases[] = {
      {"one word of 5 MB", QByteArray(5'000'000, 'A'), QString(5'000'000, u'A')},
      {"words of 1 MB", QByteArray("AAAA ").repeated(200'000), QString(u"AAAA "_s).repeated(200'000)},
      {"NUL bytes", QByteArray("1\0\0T", 4), u"1··T"_s},
      {"separators", u"1\u20282\u20293\uFDD04\uFDD15\uFFFC"_s.toUtf8(), u"1·2·3\n4\n5\uFFFC"_s},
  };
  start();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    server_.setFile(u"/metar/RJAA.TXT"_s, head + c.body + " TCU\n");
    QElapsedTimer time;
    time.start();
    type(u"RJAA"_s);
    desktop_->window().repaint();
    EXPECT_LT(time.elapsed(), 30'000);
    const QString text = shown();
    EXPECT_TRUE(text.contains(QString(u"240500Z "_s + c.shown + u" TCU\n"))) << text.left(200).toStdString();
    // Colours and explanations go by position.
    const qsizetype tcu = desktop_->terminal().program().console.screen().text().indexOf(u"TCU");
    QTextCursor cursor(screen().document());
    cursor.setPosition(static_cast<int>(text.indexOf(u"TCU")));
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, 3);
    screen().setTextCursor(cursor);
    EXPECT_EQ(screen().selectedStretch(), (std::pair<qsizetype, qsizetype>(tcu, 3)));
  }
}

TEST_F(WindowTest, DoesWithoutTrayAndSoundDevice) {
  ASSERT_FALSE(TaskIcon::isAvailable());
  start();
  desktop_->window().showMinimized();
  QTest::qWait(20);
  // Nothing else would bring a hidden window back.
  EXPECT_TRUE(desktop_->window().isVisible());
  desktop_->window().restore();
  EXPECT_FALSE(desktop_->window().isMinimized());

  QElapsedTimer time;
  time.start();
  for (const QString& name : {u"ring.wav"_s, u"missing.wav"_s})
    desktop_->terminal().program().services.sounds.play(home_.filePath(u"sound/"_s + name));
  EXPECT_LT(time.elapsed(), 70'000); // a sound ends at its length and a little more at the latest
  type(u"RJTT"_s);
  EXPECT_TRUE(shown().contains(u"RJTT  METAR"));
}

} // namespace soran
