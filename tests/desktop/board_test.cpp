// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/board_form.h"
#include "desktop/forms/board_model.h"
#include "runs/night_desk.h"
#include "runs/shift_report.h"
#include "window_fixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTableView>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class BoardWindowTest : public WindowTest {
 protected:
  BoardForm& shownBoard() {
    options_.demo = true;
    start();
    timers_.step();
    type(u"BOARD"_s);
    return *qobject_cast<BoardForm*>(desktop_->forms().widget(form::Board{}));
  }
  Program& program() { return desktop_->terminal().program(); }
  QTableView& table(BoardForm& form) { return *form.findChild<QTableView*>(); }
  QStringList codes(BoardForm& form) {
    QStringList list;
    const QAbstractItemModel& model = *table(form).model();
    for (int row = 0; row < model.rowCount(); ++row)
      list.append(model.index(row, int(BoardColumn::Code)).data().toString());
    return list;
  }
};

TEST_F(BoardWindowTest, ShowsTheListAndTheReportOfTheChosenRow) {
  BoardForm& form = shownBoard();
  ASSERT_TRUE(form.isVisible());
  QStringList listed;
  for (const Airport& airport : program().tables.autoRows())
    listed.append(airport.code);
  QStringList shown = codes(form);
  shown.sort();
  listed.sort();
  EXPECT_EQ(shown, listed);
  ASSERT_FALSE(listed.isEmpty());
  auto& filter = *form.findChild<QLineEdit*>();
  filter.setText(listed[0].toLower());
  ASSERT_EQ(codes(form), QStringList{listed[0]});
  table(form).selectRow(0);
  EXPECT_TRUE(form.findChild<QPlainTextEdit*>()->toPlainText().contains(listed[0] + u"  TAF"));
  filter.clear();
  EXPECT_EQ(table(form).currentIndex().siblingAtColumn(int(BoardColumn::Code)).data(), listed[0]);
  // Nothing that is the same is told to the table again.
  QSignalSpy changed(table(form).model(), &QAbstractItemModel::dataChanged);
  QSignalSpy reset(table(form).model(), &QAbstractItemModel::modelReset);
  timers_.step();
  EXPECT_EQ(reset.count(), 0);
  EXPECT_EQ(changed.count(), 0);
  type(u"BOARD KANTO"_s);
  EXPECT_GT(reset.count(), 0);
}

TEST_F(BoardWindowTest, AKeyAcknowledgesTheChosenAlarm) {
  BoardForm& form = shownBoard();
  program().settings().store(key::条件アラーム, true);
  const StationCode code(codes(form).first());
  const Finding finding{.element = u"VIS"_s, .words = u"0300"_s, .value = 300, .limit = 800, .level = 3};
  boardRows(program(), {code.text()});
  program().desk.book->take(code, ReportKind::Metar, std::vector{finding}, {},
                            program().services.clock.now().toUTC());
  timers_.step();
  auto& model = static_cast<BoardModel&>(*table(form).model());
  const int row = model.rowOf(code);
  EXPECT_EQ(model.index(row, int(BoardColumn::Alarm)).data(), u"RING"_s);
  table(form).selectRow(row);
  table(form).setFocus();
  QTest::keyClick(&table(form), Qt::Key_Return);
  EXPECT_EQ(model.index(model.rowOf(code), int(BoardColumn::Alarm)).data(), u"ACK"_s);
  EXPECT_TRUE(shiftText(program(), {})->contains(code.text() + u" ACK"));
  QTest::keyClick(&form, Qt::Key_F11);
  EXPECT_TRUE(form.isFullScreen());
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

} // namespace
} // namespace soran
