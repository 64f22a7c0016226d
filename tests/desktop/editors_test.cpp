// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/editor_grid.h"
#include "desktop/widgets/picture_drop.h"
#include "forms/list_rules.h"
#include "modal_steps.h"
#include "reports/airport_limits.h"
#include "window_fixture.h"

#include <QBuffer>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class EditorsTest : public WindowTest {
 protected:
  Tables& tables() { return desktop_->terminal().program().tables; }
};

void clickCell(QAbstractItemView& grid, int row, int column = 0) {
  const QRect place = grid.visualRect(grid.model()->index(row, column));
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place.center());
}

void clickBelowRows(QAbstractItemView& grid) {
  const QPoint place(grid.viewport()->width() / 2, grid.viewport()->height() - 3);
  ASSERT_FALSE(grid.indexAt(place).isValid());
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
}

TEST_F(EditorsTest, AnAirportIsAddedAndWritten) {
  start();
  const QList<Airport> before = tables().airportRows();
  ModalSteps steps({
      [](QWidget& form) { click(form, u"cmd1"); },
      [](QWidget& entry) {
        EXPECT_EQ(entry.windowTitle(), u" 飛行場情報の追加");
        QTest::keyClick(&entry, Qt::Key_Return); // nothing typed yet
      },
      [](QWidget& message) {
        EXPECT_EQ(textOfBox(message), u"飛行場略号（ICAO 4 Letter）を入力してください　　");
        QTest::keyClick(&message, Qt::Key_Return);
      },
      [](QWidget& entry) {
        auto& code = *entry.findChild<QLineEdit*>(u"TextBox0"_s);
        QTest::keyClicks(&code, u"zzzyx"_s);
        EXPECT_EQ(code.text(), u"ZZZY");
        QTest::keyClick(&code, Qt::Key_Tab);
        QTest::keyClicks(entry.findChild<QLineEdit*>(u"TextBox1"_s), u"NEW FIELD"_s);
        click(entry, u"cmd0");
      },
      [](QWidget& form) {
        auto& grid = *form.findChild<EditorGrid*>(u"grid"_s);
        EXPECT_EQ(grid.model()->index(0, 0).data(), u"ZZZY"_s);
        EXPECT_EQ(grid.currentIndex().row(), 0);
        EXPECT_FALSE(form.findChild<QWidget*>(u"cmd4"_s)->isEnabled());
        click(form, u"cmd5");
        EXPECT_EQ(grid.currentIndex().row(), 1);
        QTest::keyClick(&grid, Qt::Key_Escape);
      },
  });
  type(u"AP"_s);
  EXPECT_TRUE(steps.done());
  EXPECT_FALSE(desktop_->terminal().ended());
  const QList<Airport> after = tables().airportRows();
  ASSERT_EQ(after.size(), before.size() + 1);
  EXPECT_EQ(after[1], (Airport{u"ZZZY"_s, u"NEW FIELD"_s}));
}

TEST_F(EditorsTest, ARefusedGroupKeepsItsCellOpen) {
  start();
  const qsizetype before = tables().groupRows().size();
  const auto field = [](QWidget& form) { return form.findChild<QLineEdit*>(u"txt"_s); };
  ModalSteps steps({
      [&](QWidget& form) {
        click(form, u"tool_new");
        ASSERT_NE(field(form), nullptr);
        QTest::keyClicks(field(form), u"kyushu"_s);
        EXPECT_EQ(field(form)->text(), u"KYUSHU");
        QTest::keyClick(field(form), Qt::Key_Return);
        QTest::qWait(0);
        auto& grid = *form.findChild<EditorGrid*>(u"grid"_s);
        const QRect route = grid.visualRect(grid.model()->index(grid.model()->rowCount() - 1, 1));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, route.center());
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, route.center());
        ASSERT_NE(field(form), nullptr);
        QTest::keyClicks(field(form), u"rjffrjfk"_s);
        QTest::keyClick(field(form), Qt::Key_Return);
      },
      [](QWidget& message) {
        EXPECT_EQ(textOfBox(message), u"入力規則を確認してください　　");
        QTest::keyClick(&message, Qt::Key_Return);
      },
      [&](QWidget& form) {
        ASSERT_NE(field(form), nullptr);
        EXPECT_EQ(field(form)->selectedText(), u"RJFFRJFK");
        QTest::keyClicks(field(form), u"rjff rjfk"_s);
        QTest::keyClick(field(form), Qt::Key_Return);
        QTest::qWait(0);
        click(form, u"cmd0");
      },
  });
  type(u"GP"_s);
  EXPECT_TRUE(steps.done());
  ASSERT_EQ(tables().groupRows().size(), before + 1);
  EXPECT_EQ(tables().groupRows().constLast(), (Group{u"KYUSHU"_s, u"RJFF RJFK"_s}));
}

TEST_F(EditorsTest, LimitsOfAnAirportAreTypedIntoTheirCells) {
  start();
  const auto enter = [](QWidget& form, const QString& typed, Qt::Key end = Qt::Key_Return) {
    auto* field = form.findChild<QLineEdit*>(u"txt"_s);
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, typed);
    QTest::keyClick(field, end);
    QTest::qWait(0);
  };
  ModalSteps steps({
      [&](QWidget& form) {
        auto& grid = *form.findChild<EditorGrid*>(u"grid"_s);
        EXPECT_EQ(grid.model()->headerData(7, Qt::Horizontal).toString(), u"横風 kt");
        click(form, u"tool_new");
        enter(form, u"rjtt"_s);
        clickCell(grid, 0, int(LimitColumn::Crosswind));
        click(form, u"tool_edit");
        enter(form, u"25"_s, Qt::Key_Tab);
        clickBelowRows(grid);
        EXPECT_TRUE(grid.selectionModel()->isRowSelected(0));
        clickCell(grid, 0, int(LimitColumn::Weather));
        click(form, u"tool_edit");
        enter(form, u"ts fzra"_s);
        EXPECT_EQ(grid.model()->index(0, int(LimitColumn::Weather)).data(), u"TS FZRA"_s);
        click(form, u"cmd0");
      },
  });
  type(u"LIMITS"_s);
  EXPECT_TRUE(steps.done());
  EXPECT_EQ(tables().limitRows(),
            QList{(AirportLimits{.code = u"RJTT"_s, .crosswind = 25, .weather = u"TS FZRA"_s})});
}

TEST_F(EditorsTest, LimitsAreKeptHoweverTheirCellIsLeft) {
  start();
  storeLimits(tables(), {{.code = u"RJTT"_s}, {.code = u"RJAA"_s}});
  const auto write = [](QWidget& form, int row, LimitColumn column, const QString& typed) {
    auto& grid = *form.findChild<EditorGrid*>(u"grid"_s);
    grid.setCurrentIndex(grid.model()->index(row, int(column)));
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* field = form.findChild<QLineEdit*>(u"txt"_s);
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, typed);
  };
  ModalSteps steps({
      [&](QWidget& form) {
        auto& grid = *form.findChild<EditorGrid*>(u"grid"_s);
        write(form, 0, LimitColumn::Crosswind, u"25"_s);
        clickCell(grid, 1, int(LimitColumn::Wind));
        EXPECT_EQ(grid.model()->index(0, int(LimitColumn::Crosswind)).data(), u"25"_s);
        EXPECT_EQ(grid.currentIndex(), grid.model()->index(1, int(LimitColumn::Wind)));
        QTest::qWait(0);
        write(form, 0, LimitColumn::Gust, u"40"_s);
        form.findChild<QPushButton*>(u"cmd2"_s)->click(); // by its letter, which leaves the focus
        EXPECT_EQ(grid.model()->index(1, int(LimitColumn::Gust)).data(), u"40"_s);
        QTest::qWait(0);
        write(form, 0, LimitColumn::Visibility, u"fog"_s);
        form.close();
      },
      [](QWidget& message) {
        EXPECT_NE(textOfBox(message), QString());
        QTest::keyClick(&message, Qt::Key_Return);
      },
      [](QWidget& form) {
        EXPECT_TRUE(form.isVisible());
        auto* field = form.findChild<QLineEdit*>(u"txt"_s);
        ASSERT_NE(field, nullptr);
        QTest::keyClicks(field, u"800"_s);
        form.close();
      },
  });
  type(u"LIMITS"_s);
  EXPECT_TRUE(steps.done());
  EXPECT_EQ(tables().limitRows(), QList({AirportLimits{.code = u"RJAA"_s, .visibility = 800},
                                         AirportLimits{.code = u"RJTT"_s, .gust = 40, .crosswind = 25}}));
}

TEST_F(EditorsTest, AirportsArePickedForTheAutomaticDecode) {
  start();
  const QList<Airport> before = tables().autoRows();
  const Airport last = tables().airportRows().constLast();
  ModalSteps steps({[&](QWidget& form) {
    auto& source = *form.findChild<QAbstractItemView*>(u"grid0"_s);
    auto& target = *form.findChild<QAbstractItemView*>(u"grid1"_s);
    clickCell(target, 0);
    EXPECT_FALSE(form.findChild<QWidget*>(u"cmd0"_s)->isEnabled());
    click(form, u"cmd1");
    EXPECT_EQ(target.model()->rowCount(), before.size() - 1);
    EXPECT_FALSE(form.findChild<QWidget*>(u"cmd1"_s)->isEnabled());
    QTest::keyClick(&source, Qt::Key_Home);
    EXPECT_TRUE(source.selectionModel()->hasSelection());
    // What the buttons act on stays marked.
    clickCell(target, 1);
    clickBelowRows(target);
    EXPECT_EQ(target.selectionModel()->selectedIndexes().value(0).row(), 1);
    EXPECT_TRUE(form.findChild<QWidget*>(u"cmd1"_s)->isEnabled());
    QTest::keyClick(&form, Qt::Key_Escape);
  }});
  type(u"DE"_s);
  EXPECT_TRUE(steps.done());
  EXPECT_EQ(tables().autoRows(), before.mid(1));
}

TEST_F(EditorsTest, APhraseIsEditedAndThrownAwayTextIsNot) {
  start();
  const QList<DictionaryEntry> before = tables().phraseRows();
  ASSERT_GE(before.size(), 2);
  ModalSteps steps({[&](QWidget& form) {
    EXPECT_EQ(form.windowTitle(), u" 日本語解析");
    auto& grid = *form.findChild<EditorGrid*>(u"grid"_s);
    clickCell(grid, 1, 1);
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClicks(form.findChild<QLineEdit*>(u"txt"_s), u"New phrase"_s);
    QTest::keyClick(form.findChild<QLineEdit*>(u"txt"_s), Qt::Key_Return);
    QTest::qWait(0);
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClicks(form.findChild<QLineEdit*>(u"txt"_s), u"lost"_s);
    QTest::keyClick(form.findChild<QLineEdit*>(u"txt"_s), Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    form.close();
  }});
  type(u"JAPANESE"_s);
  EXPECT_TRUE(steps.done());
  EXPECT_EQ(tables().phraseRows()[1].meaning, u"New phrase");
}

TEST_F(EditorsTest, ADroppedPictureIsRegistered) {
  start();
  const QString name = tables().pictures().valueAt(0, u"名称").toString();
  QByteArray png;
  QBuffer buffer(&png);
  QImage(8, 8, QImage::Format_RGB32).save(&buffer, "PNG");
  const QString path = home_.filePath(u"dropped.png"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(png);
  file.close();
  ModalSteps steps({
      [&](QWidget& form) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        auto* place = form.findChild<PictureDrop*>(u"Picture1"_s);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(place, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(place, &drop);
        EXPECT_FALSE(form.findChild<QWidget*>(u"tool_new"_s)->isVisible());
      },
      [](QWidget& question) {
        EXPECT_EQ(textOfBox(question), u"写真を登録しますか？　　");
        click(question, u"yes");
      },
      [](QWidget& form) { click(form, u"cmdClose"); },
  });
  type(u"PICTURE"_s);
  EXPECT_TRUE(steps.done());
  EXPECT_EQ(tables().picture(name), png);
}

} // namespace
} // namespace soran
