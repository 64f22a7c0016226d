// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/screen_view.h"

#include "support/printing.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QToolTip>
#include <gtest/gtest.h>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

TEST(ScreenPositions, MapsLineEndsOfBothKinds) {
  for (const QString& text :
       {u""_s, u"ABC"_s, u"A\r\nB"_s, u"\r\n\r\n"_s, u"A\nB\r\nC\n\r\nD"_s, u"\n\r\n\nX"_s}) {
    ScreenPositions positions;
    positions.extend(text, 0);
    qsizetype widget = 0;
    for (qsizetype at = 0; at <= text.size(); ++at) {
      const bool between = at > 0 && at < text.size() && text[at - 1] == u'\r' && text[at] == u'\n';
      if (between) {
        EXPECT_EQ(positions.toWidget(at), widget - 1) << text.toStdString() << at;
        continue;
      }
      EXPECT_EQ(positions.toWidget(at), widget) << text.toStdString() << at;
      EXPECT_EQ(positions.toScreen(widget), at) << text.toStdString() << at;
      ++widget;
    }
  }
}

class ScreenViewTest : public testing::Test {
 protected:
  ScreenViewTest() {
    view_.show(screen_);
    view_.resize(600, 300);
    QObject::connect(&view_, &ScreenView::keyTyped, &view_, [this](QChar key) { typed_ += key; });
  }
  QTextBlock lineOf(int number) { return view_.document()->findBlockByNumber(number); }

  Screen screen_;
  ScreenView view_;
  QString typed_;
};

TEST_F(ScreenViewTest, ShowsTextWithEachLineEndAsOne) {
  screen_.setText(u"RJTT\r\nMETAR\n250300Z"_s);
  EXPECT_EQ(view_.toPlainText(), u"RJTT\nMETAR\n250300Z");
  screen_.append(u"\r\nRJAA\r"_s);
  screen_.append(u"\nEND"_s);
  EXPECT_EQ(view_.toPlainText(), u"RJTT\nMETAR\n250300Z\nRJAA\nEND");
  EXPECT_EQ(view_.positions().toScreen(view_.toPlainText().indexOf(u"END")), screen_.text().indexOf(u"END"));
}

TEST_F(ScreenViewTest, ATipTellsOfThePlaceBelowThePointer) {
  screen_.setText(u"LINE\r\nRJTT  METAR 1030I"_s);
  qsizetype asked = -1;
  view_.setNotes([&asked](qsizetype at) {
    asked = at;
    return at < 6 ? QString() : u"9 min OLD"_s;
  });
  view_.QWidget::show();
  for (const auto& [column, tip] : {std::pair{2, QString()}, {7, u"9 min OLD"_s}}) {
    QTextCursor cursor(view_.document());
    cursor.setPosition(column);
    const QPoint place = view_.cursorRect(cursor).center() + QPoint(2, 0);
    QHelpEvent help(QEvent::ToolTip, place, view_.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view_.viewport(), &help);
    EXPECT_EQ(asked, view_.positions().toScreen(column));
    EXPECT_EQ(QToolTip::text(), tip);
  }
}

TEST_F(ScreenViewTest, ShowsRunsAsFormatsAcrossLineEnds) {
  screen_.setText(u"AA\r\nBBCC\nDD"_s);
  screen_.setRuns({{0, 1, white, false}, {1, 5, yellow, false}, {6, 2, red, true}, {8, 3, white, false}});
  const QList<QTextLayout::FormatRange> first = lineOf(0).layout()->formats();
  const QList<QTextLayout::FormatRange> second = lineOf(1).layout()->formats();
  ASSERT_EQ(first.size(), 1);
  EXPECT_EQ(first[0].start, 1);
  EXPECT_EQ(first[0].length, 1);
  EXPECT_EQ(first[0].format.foreground().color(), QColor(255, 255, 0));
  ASSERT_EQ(second.size(), 2);
  EXPECT_EQ(second[0].start, 0);
  EXPECT_EQ(second[0].length, 2);
  EXPECT_EQ(second[1].start, 2);
  EXPECT_EQ(second[1].format.foreground().color(), QColor(255, 0, 0));
  EXPECT_EQ(second[1].format.fontWeight(), int(QFont::Bold));
  EXPECT_TRUE(lineOf(2).layout()->formats().isEmpty());
  screen_.setBase(white, false);
  EXPECT_TRUE(lineOf(1).layout()->formats().isEmpty());
}

TEST_F(ScreenViewTest, AppendedTextTakesTheAttributesBeforeIt) {
  screen_.setText(u"AA"_s);
  screen_.paint(0, 2, yellow);
  screen_.append(u"BB\r\nCC"_s);
  ASSERT_EQ(lineOf(0).layout()->formats().size(), 1);
  EXPECT_EQ(lineOf(0).layout()->formats()[0].length, 4);
  ASSERT_EQ(lineOf(1).layout()->formats().size(), 1);
}

TEST_F(ScreenViewTest, SelectionIsToldInPositionsOfTheScreen) {
  screen_.setText(u"A\r\nB\nRJTT CC"_s);
  QTextCursor cursor = view_.textCursor();
  cursor.setPosition(4);
  cursor.setPosition(8, QTextCursor::KeepAnchor);
  view_.setTextCursor(cursor);
  const auto [start, length] = view_.selectedStretch();
  EXPECT_EQ(screen_.text().mid(start, length), u"RJTT");
  QTest::keyClick(&view_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"RJTT");
  EXPECT_TRUE(typed_.isEmpty());
}

TEST_F(ScreenViewTest, KeysReachTheTerminalAsCapitals) {
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    QString typed;
  };
  const Case cases[] = {
      {Qt::Key_R, Qt::NoModifier, u"R"_s},         {Qt::Key_R, Qt::ShiftModifier, u"R"_s},
      {Qt::Key_Slash, Qt::NoModifier, u"/"_s},     {Qt::Key_Space, Qt::NoModifier, u" "_s},
      {Qt::Key_Return, Qt::NoModifier, u"\r"_s},   {Qt::Key_Enter, Qt::KeypadModifier, u"\r"_s},
      {Qt::Key_Escape, Qt::NoModifier, u"\x1B"_s}, {Qt::Key_Backspace, Qt::NoModifier, u"\b"_s},
      {Qt::Key_X, Qt::ControlModifier, QString()}, {Qt::Key_Q, Qt::AltModifier, QString()},
      {Qt::Key_Delete, Qt::NoModifier, QString()}, {Qt::Key_PageUp, Qt::NoModifier, QString()},
  };
  screen_.setText(u"TEXT"_s);
  for (const Case& c : cases) {
    typed_.clear();
    QTest::keyClick(&view_, c.key, c.modifiers);
    EXPECT_EQ(typed_, c.typed) << c.key;
  }
  EXPECT_EQ(view_.toPlainText(), u"TEXT");
}

TEST_F(ScreenViewTest, PasteTypesUpToTheFirstLineEnd) {
  QGuiApplication::clipboard()->setText(u"rjtt rjaa\r\nrjbb"_s);
  QTest::keyClick(&view_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(typed_, u"RJTT RJAA");
  EXPECT_TRUE(view_.toPlainText().isEmpty());
}

TEST_F(ScreenViewTest, CaretScrollsToTheEndAndToTheTop) {
  static_cast<QWidget&>(view_).show();
  screen_.setText(u"LINE\r\n"_s.repeated(400));
  screen_.caretToEnd();
  EXPECT_EQ(view_.verticalScrollBar()->value(), view_.verticalScrollBar()->maximum());
  screen_.setCaret(0);
  EXPECT_EQ(view_.verticalScrollBar()->value(), 0);
}

} // namespace
} // namespace soran
