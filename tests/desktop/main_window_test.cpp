// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/look.h"
#include "desktop/widgets/toolbar_frame.h"
#include "runs/change_detector.h"
#include "support/printing.h"
#include "window_fixture.h"

#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

/// True where a window of that name is shown.
bool isUp(QStringView name) {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::any_of(windows.begin(), windows.end(), [name](const QWidget* window) {
    return window->objectName() == name && window->isVisible();
  });
}

TEST_F(WindowTest, TypedCodeShowsItsReportsInColour) {
  start();
  QTest::keyClicks(&screen(), u"rjtx"_s);
  EXPECT_EQ(textOf(u"padlbl"), u"RJTX");
  QTest::keyClick(&screen(), Qt::Key_Backspace);
  type(u"t"_s);
  EXPECT_TRUE(shown().contains(u"RJTT  METAR 1400I\n")) << shown().toStdString();
  EXPECT_TRUE(shown().contains(u"RJTT  TAF   1405I\n")) << shown().toStdString();
  EXPECT_TRUE(shown().endsWith(u"READY / PRESS ESC TO EXIT")) << shown().toStdString();
  EXPECT_TRUE(textOf(u"padlbl").isEmpty());
  EXPECT_TRUE(textOf(u"Panel2").startsWith(u"自動デコード"));

  const QTextBlock line = screen().document()->find(u"-SHRA"_s).block();
  QStringList coloured;
  for (const QTextLayout::FormatRange& range : line.layout()->formats())
    coloured.append(line.text().mid(range.start, range.length));
  EXPECT_TRUE(coloured.contains(u"-SHRA")) << coloured.join(u'|').toStdString();
  EXPECT_EQ(screen().textCursor().position(), shown().size());
}

TEST_F(WindowTest, StartShowsBannerAndSettingsAndControlsAreNamed) {
  start();
  EXPECT_EQ(desktop_->window().windowTitle(), u"SORAN");
  EXPECT_TRUE(QTest::qWaitFor([this] { return server_.requests().count(u"/index2.htm"_s) == 1; }));
  EXPECT_TRUE(child(u"Frame1")->isVisible());
  EXPECT_TRUE(textOf(u"Label1").contains(u"\n       Version 4.31\n"));
  type(u"RJTT"_s);
  EXPECT_FALSE(child(u"Frame1")->isVisible());
  EXPECT_TRUE(child(u"TextBox2")->isVisible());

  Settings& settings = desktop_->terminal().program().settings();
  settings.store(key::スクロールバーを表示, true);
  settings.store(key::表示領域の色, colourOf(10, 20, 30));
  settings.store(key::表示文字のサイズ, 20);
  desktop_->terminal().program().console.applyDisplaySettings();
  EXPECT_FALSE(child(u"TextBox2")->isVisible());
  EXPECT_EQ(screen().palette().color(QPalette::Base), QColor(10, 20, 30));
  EXPECT_EQ(screen().font().pointSize(), 20);

  for (const QString& name : {u"TextBox0"_s, u"TextBox1"_s, u"Frame"_s, u"StatusBar"_s, u"Panel1"_s,
                              u"inputURL"_s, u"WebBrowser"_s, u"Line"_s}) {
    ASSERT_NE(child(name), nullptr) << name.toStdString();
    EXPECT_FALSE(spokenName(child(name)).isEmpty()) << name.toStdString();
  }
}

TEST_F(WindowTest, DemonstrationIsMarked) {
  options_.demo = true;
  start();
  EXPECT_EQ(desktop_->window().windowTitle(), u"SORAN - DEMONSTRATION DATA");
  EXPECT_EQ(textOf(u"demonstrationMark"), u"DEMONSTRATION DATA");
  EXPECT_EQ(textOf(u"bannerMark"), u"DEMONSTRATION DATA");
}

TEST_F(WindowTest, DoubleClickExplainsTheGroupUntilTheNextPress) {
  start();
  type(u"RJTT"_s);
  QTextCursor cursor = screen().document()->find(u"FEW008"_s);
  cursor.setPosition(cursor.selectionStart() + 2);
  const QPoint place = screen().cursorRect(cursor).center();
  QWidget* area = screen().viewport();
  QTest::mouseDClick(area, Qt::LeftButton, {}, place);
  QTest::mouseRelease(area, Qt::LeftButton, {}, place);
  QDialog* tip = desktop_->forms().widget(form::Tip{});
  ASSERT_NE(tip, nullptr);
  EXPECT_TRUE(tip->isVisible());
  EXPECT_TRUE(tip->findChild<QLabel*>(u"lbl"_s)->text().startsWith(u"FEW008 ： 800フィートに小量"));
  QTest::mousePress(area, Qt::LeftButton, {}, place + QPoint(0, 40));
  EXPECT_EQ(desktop_->forms().widget(form::Tip{}), nullptr);
}

TEST_F(WindowTest, TheFirstKeyOfAnAddressBringsItsBeginning) {
  start();
  auto* line = child<QLineEdit>(u"inputURL");
  QTest::keyClicks(line, u"jh"_s);
  EXPECT_EQ(line->text(), u"jh");
  line->clear();
  QTest::keyClicks(line, u"he"_s);
  EXPECT_EQ(line->text(), u"https://www.e");
  // Taking it back leaves an empty line.
  for (qsizetype i = line->text().size(); i > 0; --i)
    QTest::keyClick(line, Qt::Key_Backspace);
  EXPECT_EQ(line->text(), QString());
}

TEST_F(WindowTest, MenusAndButtonsShowAndRunTheirEntries) {
  start();
  auto* clear = child<QToolButton>(u"img6");
  ASSERT_NE(clear, nullptr);
  EXPECT_EQ(clear->toolTip(), u" 画面消去 ");
  EXPECT_FALSE(clear->icon().isNull());
  EXPECT_FALSE(child<QToolButton>(u"img15")->isEnabled());
  auto* airports = child<QMenu>(u"menu_list");
  ASSERT_FALSE(airports->isEmpty());
  EXPECT_TRUE(airports->menuAction()->text().startsWith(u"シーケンス"));
  QAction* tokyo = nullptr;
  for (QAction* action : airports->actions()) {
    if (action->text().startsWith(u"RJTT  "))
      tokyo = action;
  }
  ASSERT_NE(tokyo, nullptr);
  tokyo->trigger();
  EXPECT_TRUE(shown().contains(u"RJTT  METAR")) << shown().toStdString();
  QTest::mouseClick(clear, Qt::LeftButton);
  EXPECT_FALSE(shown().contains(u"RJTT")) << shown().toStdString();
  EXPECT_TRUE(screen().hasFocus() || !desktop_->window().isActiveWindow());

  child<QAction>(u"menu_info_version")->trigger();
  EXPECT_TRUE(desktop_->forms().widget(form::Version{})->isVisible());
  EXPECT_FALSE(desktop_->window().popup().isEmpty());
  EXPECT_TRUE(desktop_->window().popup().menuAction()->isVisible());
  child<QAction>(u"menu_exit")->trigger();
  EXPECT_TRUE(desktop_->terminal().ended());
}

// Run on a display too, where the alert is heard over the bus.
TEST_F(WindowTest, NewReportsAlertAssistiveTechnology) {
  start();
  type(u"RJTT"_s);
  // Keys go over the bus and come back where there is one.
  ASSERT_TRUE(QTest::qWaitFor([this] { return shown().contains(u"READY"); }));
  Program& program = desktop_->terminal().program();
  program.settings().store(key::自動デコード有効, true);
  const QWidget* alert = child(u"reportAlert");
  ASSERT_EQ(QAccessible::queryAccessibleInterface(child(u"reportAlert"))->role(), QAccessible::Notification);
  checkForChanges(program);
  EXPECT_EQ(spokenName(alert), QString());
  server_.setFile(u"/metar/RJTT.TXT"_s, "2026/11/24 05:10\nRJTT 240510Z 16008KT 9999 FEW008 22/18 Q1013\n");
  checkForChanges(program);
  EXPECT_EQ(spokenName(alert), u"RJTT SPECI RECEIVED");
  // A reader on the bus asks what has come up.
  if (QGuiApplication::platformName() != u"offscreen")
    QTest::qWait(400);
}

// A reader under a flood of names leaves out what it should speak.
TEST_F(WindowTest, RunsNameNoButtonAnew) {
  struct Tips : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::ToolTipChange;
      return false;
    }
    int count = 0;
  } tips;
  start();
  for (QToolButton* button : desktop_->window().findChild<ToolbarFrame*>()->findChildren<QToolButton*>())
    button->installEventFilter(&tips);
  type(u"RJTT"_s);
  QCoreApplication::processEvents();
  EXPECT_EQ(tips.count, 0);
}

TEST_F(WindowTest, WhatARunShowsIsToldOnce) {
  start();
  const auto told = [this] {
    QStringList texts;
    for (const QWidget* alert : desktop_->window().findChildren<QWidget*>(u"screenAlert"_s)) {
      if (const QString text = spokenName(alert); !text.isEmpty())
        texts.append(text);
    }
    return texts;
  };
  ASSERT_TRUE(QTest::qWaitFor([&] { return !told().isEmpty(); }));
  const qsizetype before = told().size();
  type(u"RJTT"_s);
  ASSERT_TRUE(QTest::qWaitFor([&] { return told().size() > before; }));
  type(u"RJ1"_s);
  ASSERT_TRUE(QTest::qWaitFor([&] { return told().size() > before + 1; }));
  EXPECT_TRUE(told()[before].startsWith(u"*** RJTT - ")) << told()[before].toStdString();
  EXPECT_EQ(told()[before].count(u"READY"), 1);
  EXPECT_EQ(told().constLast(), u"SYNTAX ERROR\nREADY / PRESS ESC TO EXIT");
}

TEST_F(WindowTest, ProgressShowsForLongListsOnly) {
  start();
  server_.setDelivery(u"/metar/"_s, {.delay = 20});
  auto* bar = child<QProgressBar>(u"progress");
  bool seen = false;
  QObject::connect(bar, &QProgressBar::valueChanged, bar, [&] { seen = seen || !bar->isHidden(); });
  type(u"RJTT RJTT RJTT RJTT RJTT"_s);
  EXPECT_FALSE(seen);
  type(u"RJTT RJTT RJTT RJTT RJTT RJTT RJTT"_s);
  EXPECT_TRUE(seen);
  EXPECT_TRUE(bar->isHidden());
}

TEST_F(WindowTest, EndsCleanlyInTheMiddleOfASlowFetch) {
  struct Case {
    const char* name;
    std::function<void()> end;
  };
  const Case cases[] = {
      {"Escape", [this] { QTest::keyClick(&screen(), Qt::Key_Escape); }},
      {"close box", [this] { desktop_->window().close(); }},
  };
  server_.setDelivery(u"/metar/"_s, {.delay = 20000});
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    start();
    screen().setFocus();
    QTimer::singleShot(100, &desktop_->window(), [&c] { c.end(); });
    const QString before = shown();
    QElapsedTimer clock;
    clock.start();
    type(u"RJTT"_s);
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_TRUE(desktop_->terminal().ended());
    EXPECT_FALSE(desktop_->window().isVisible());
    EXPECT_FALSE(shown().contains(u"NOT FOUND")) << shown().toStdString();
    EXPECT_FALSE(QFileInfo::exists(home_.filePath(u"data"_s)));
    desktop_.reset();
  }
}

TEST_F(WindowTest, AMessageOfTheStartStandsAloneOverTheWindow) {
  server_.setFile(u"/data/version.dat"_s, "4.31\n0.00\n1.00\n");
  // The form of the start comes up after a while: behind the message, or before it.
  for (const int delay : {0, 400}) {
    QFile::remove(home_.filePath(u"soran.mdb"_s));
    QFile::remove(home_.filePath(u"soran.mdb.bak"_s));
    server_.setDelivery(u"/data/soran.mdb"_s, {.delay = delay});
    makeDesktop();
    QString text;
    bool alone = false;
    bool over = false;
    QTimer watch;
    int looks = 0;
    watch.callOnTimeout([&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box || ++looks < 10)
        return;
      text = box->text();
      alone = !isUp(u"opening");
      over = qobject_cast<MainWindow*>(box->parentWidget()) && box->parentWidget()->isVisible();
      box->accept();
    });
    watch.start(50);
    EXPECT_TRUE(desktop_->start());
    EXPECT_EQ(text, u"データベースを初期化しました　　");
    EXPECT_TRUE(alone) << delay;
    EXPECT_TRUE(over) << delay;
    type(u"RJTT"_s);
    EXPECT_TRUE(shown().contains(u"RJTT  METAR"));
    desktop_.reset();
  }
}

TEST_F(WindowTest, CloseDuringTheStartEndsIt) {
  server_.setDelivery(u"/data/version.dat"_s, {.delay = 20000});
  makeDesktop();
  QTimer::singleShot(400, desktop_.get(), [] {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == u"opening")
        widget->close();
    }
  });
  EXPECT_FALSE(desktop_->start());
}

TEST_F(WindowTest, WithoutNetworkTheStartTellsAndEnds) {
  server_.stop();
  makeDesktop();
  bool told = false;
  QTimer::singleShot(500, desktop_.get(), [&told] {
    QWidget* form = QApplication::activeModalWidget();
    ASSERT_NE(form, nullptr);
    told = form->objectName() == u"noconnectmsg" && !isUp(u"opening");
    QTest::mouseClick(form->findChild<QWidget*>(u"cmdOK"_s), Qt::LeftButton);
  });
  EXPECT_FALSE(desktop_->start());
  EXPECT_TRUE(told);
}

TEST_F(WindowTest, SecondInstanceIsToldAndLeavesTheFirst) {
  start();
  Launch secondLaunch(options_, timers_, delivered::file);
  Desktop second(secondLaunch);
  QString text;
  QTimer::singleShot(200, &second, [&text] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    text = box->text();
    box->accept();
  });
  EXPECT_FALSE(second.start());
  EXPECT_EQ(text, u"SORAN はすでに起動しています  ");
  type(u"RJTT"_s);
  EXPECT_TRUE(shown().contains(u"RJTT  METAR"));
}

TEST_F(WindowTest, ClosingEndsAnOpenQuestion) {
  start();
  desktop_->terminal().program().settings().store(key::自動デコード有効, false);
  QTimer::singleShot(100, desktop_.get(), [this] {
    EXPECT_NE(QApplication::activeModalWidget(), nullptr);
    desktop_->terminal().close();
  });
  type(u"ATO"_s);
  EXPECT_TRUE(desktop_->terminal().ended());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(Look, ReplacesAMissingFamilyByAnInstalledOne) {
  EXPECT_EQ(installedFamily(u"No Such Family"_s), installedFamily(u"ＭＳ ゴシック"_s));
  const QFontMetrics metrics(terminalFont(u"ＭＳ ゴシック"_s, 11));
  EXPECT_EQ(metrics.horizontalAdvance(u"iiii"_s), metrics.horizontalAdvance(u"WWWW"_s));
  EXPECT_EQ(metrics.horizontalAdvance(u"気象"_s), metrics.horizontalAdvance(u"WWWW"_s));
}

} // namespace
} // namespace soran
