// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/map_form.h"
#include "desktop/forms/map_list_model.h"
#include "desktop/widgets/map_view.h"
#include "fakes/world.h"
#include "runs/night_desk.h"
#include "window_fixture.h"

#include <QAccessible>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWheelEvent>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class MapWindowTest : public WindowTest {
 protected:
  void showMap(const QString& line = u"MAP"_s) {
    options_.demo = true;
    start();
    timers_.step();
    type(line);
    form_ = qobject_cast<MapForm*>(desktop_->forms().widget(form::Map{}));
    ASSERT_TRUE(form_ && form_->isVisible());
    view_ = form_->findChild<MapView*>();
    list_ = form_->findChild<QListView*>();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form_));
  }
  Program& program() { return desktop_->terminal().program(); }
  QString report() { return form_->findChild<QPlainTextEdit*>()->toPlainText(); }
  QStringList listed() {
    QStringList lines;
    for (int row = 0; row < list_->model()->rowCount(); ++row)
      lines.append(list_->model()->index(row, 0).data(Qt::AccessibleTextRole).toString());
    return lines;
  }
  QString chosen() { return static_cast<MapListModel*>(list_->model())->codeAt(list_->currentIndex().row()); }
  std::optional<Point> placeOf(const QString& code) {
    for (const PlacedStation& placed : view_->picture().placed) {
      if (placed.code.text() == code)
        return placed.at;
    }
    return std::nullopt;
  }
  Point middle() { return view_->projection().middle(); }

  MapForm* form_ = nullptr;
  MapView* view_ = nullptr;
  QListView* list_ = nullptr;
};

TEST_F(MapWindowTest, ListsTheAirportsWithTheirState) {
  showMap();
  const std::optional<QStringList> codes = boardCodes(program(), {});
  std::vector<BoardRow> rows = boardRows(program(), *codes);
  sortWorstFirst(rows);
  const QStringList lines = listed();
  ASSERT_EQ(lines.size(), qsizetype(rows.size()));
  for (size_t i = 0; i < rows.size(); ++i) {
    EXPECT_TRUE(lines[qsizetype(i)].startsWith(stateWord(rows[i]) + u' '))
        << lines[qsizetype(i)].toStdString();
    EXPECT_TRUE(lines[qsizetype(i)].contains(rows[i].code.text() + u' ' + rows[i].name));
    const std::optional<Point> place = placeOf(rows[i].code.text());
    ASSERT_TRUE(place) << rows[i].code.text().toStdString();
    EXPECT_TRUE(view_->rect().contains(int(place->x), int(place->y)));
  }
  EXPECT_EQ(spokenName(list_), u"飛行場の一覧");
  // The worst is chosen, with its report.
  EXPECT_EQ(chosen(), rows[0].code.text());
  EXPECT_TRUE(report().startsWith(rows[0].code.text()));
  type(u"MAP NOWHERE"_s);
  EXPECT_TRUE(shown().contains(u"NO SUCH GROUP"));
}

TEST_F(MapWindowTest, IsMovedByKeys) {
  showMap();
  view_->setFocus();
  const Projection all = view_->projection();
  struct {
    Qt::Key key;
    int east, north, scale; // which way they go
  } const cases[] = {
      {Qt::Key_Left, -1, 0, 0}, {Qt::Key_Right, 1, 0, 0}, {Qt::Key_Up, 0, 1, 0},
      {Qt::Key_Down, 0, -1, 0}, {Qt::Key_Plus, 0, 0, 1},  {Qt::Key_Minus, 0, 0, -1},
  };
  const auto way = [](double difference) { return difference > 1e-9 ? 1 : difference < -1e-9 ? -1 : 0; };
  for (const auto& c : cases) {
    SCOPED_TRACE(int(c.key));
    QTest::keyClick(view_, c.key);
    const Projection& now = view_->projection();
    EXPECT_EQ(way(now.centre().longitude - all.centre().longitude), c.east);
    EXPECT_EQ(way(now.centre().latitude - all.centre().latitude), c.north);
    EXPECT_EQ(way(now.unitsPerDegree() - all.unitsPerDegree()), c.scale);
    QTest::keyClick(view_, Qt::Key_Home);
    EXPECT_EQ(view_->projection(), all);
  }
}

TEST_F(MapWindowTest, ChoosesByKeysAlone) {
  showMap();
  view_->setFocus();
  QTest::keyClick(view_, Qt::Key_Tab);
  ASSERT_TRUE(list_->hasFocus());
  for (int row = 1; row < list_->model()->rowCount(); ++row) {
    QTest::keyClick(list_, Qt::Key_Down);
    const QString code = chosen();
    EXPECT_TRUE(report().startsWith(code)) << code.toStdString();
    const std::optional<Point> place = placeOf(code);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, middle().x, 1e-6);
    EXPECT_NEAR(place->y, middle().y, 1e-6);
  }
  // The list leaves + and - to the map.
  const double scale = view_->projection().unitsPerDegree();
  QTest::keyClick(list_, Qt::Key_Plus);
  EXPECT_GT(view_->projection().unitsPerDegree(), scale);
  QTest::keyClick(list_, Qt::Key_Minus);
  EXPECT_DOUBLE_EQ(view_->projection().unitsPerDegree(), scale);
  // On the map, Enter takes what is nearest to the middle, and the map stays.
  const QString last = chosen();
  list_->setCurrentIndex(list_->model()->index(0, 0));
  EXPECT_NE(chosen(), last);
  const Projection before = view_->projection();
  view_->setFocus();
  QTest::keyClick(view_, Qt::Key_Return);
  EXPECT_EQ(placeOf(chosen())->x, middle().x);
  EXPECT_EQ(view_->projection(), before);
  EXPECT_TRUE(report().startsWith(chosen()));
  QTest::keyClick(view_, Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(MapWindowTest, FollowsTheMouse) {
  showMap();
  const QString code = chosen();
  const Point place = *placeOf(code);
  const QString other = static_cast<MapListModel*>(list_->model())->codeAt(1);
  const Point otherPlace = *placeOf(other);
  // A click chooses; a drag moves and chooses nothing.
  QTest::mouseClick(view_, Qt::LeftButton, {}, QPoint(int(otherPlace.x), int(otherPlace.y)));
  EXPECT_EQ(chosen(), other);
  const QPoint from(int(place.x), int(place.y));
  QTest::mousePress(view_, Qt::LeftButton, {}, from);
  QTest::mouseMove(view_, from + QPoint(30, 20));
  QTest::mouseRelease(view_, Qt::LeftButton, {}, from + QPoint(30, 20));
  EXPECT_EQ(chosen(), other);
  EXPECT_NEAR(placeOf(code)->x, place.x + 30, 1e-6);
  EXPECT_NEAR(placeOf(code)->y, place.y + 20, 1e-6);
  // The wheel leaves what is under the pointer there.
  const Point under = *placeOf(code);
  const QPointF pointer(under.x, under.y);
  QWheelEvent wheel(pointer, view_->mapToGlobal(pointer), {}, QPoint(0, 120), {}, {}, Qt::NoScrollPhase,
                    false);
  const double scale = view_->projection().unitsPerDegree();
  QApplication::sendEvent(view_, &wheel);
  EXPECT_GT(view_->projection().unitsPerDegree(), scale);
  EXPECT_NEAR(placeOf(code)->x, under.x, 1e-6);
}

TEST_F(MapWindowTest, MovesWhatItWouldDraw) {
  showMap();
  const auto differing = [](const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x)
        count += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 40 ? 1 : 0;
    }
    return count;
  };
  const QImage before = view_->grab().toImage();
  const std::pair<int, int> ways[] = {{30, 20}, {-50, -10}, {60, -40}, {900, 0}};
  for (const auto& [right, down] : ways) {
    view_->pan(right, down);
    const QImage moved = view_->grab().toImage();
    view_->dropPictures();
    EXPECT_LT(differing(moved, view_->grab().toImage()), 20) << right;
    EXPECT_GT(differing(moved, before), 1000) << right;
  }
  // The letters of a station come with it.
  view_->showAll();
  EXPECT_EQ(differing(view_->grab().toImage(), before), 0);
}

TEST_F(MapWindowTest, TakesTheColoursOfTheSettings) {
  showMap();
  const auto ground = [this] {
    const QImage image = view_->grab().toImage();
    std::map<QRgb, int> count;
    for (int x = 0; x < image.width(); ++x)
      ++count[image.pixel(x, 1)];
    return std::ranges::max_element(count, {}, [](const auto& row) { return row.second; })->first;
  };
  EXPECT_EQ(ground(), qRgb(0, 0, 0));
  program().settings().store(key::表示領域の色, white);
  form_->hide();
  type(u"MAP"_s);
  ASSERT_TRUE(form_->isVisible());
  EXPECT_EQ(ground(), qRgb(255, 255, 255));
}

TEST_F(MapWindowTest, ListsAnAirportWithoutAPosition) {
  showMap();
  setAutoList(program().tables, u"RJTT QQQQ"_s);
  timers_.step();
  const QStringList lines = listed();
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines.filter(u"QQQQ"_s), QStringList{u"NO DATA QQQQ 位置不明"_s});
  EXPECT_FALSE(placeOf(u"QQQQ"_s));
  list_->setCurrentIndex(list_->model()->index(int(lines.indexOf(u"NO DATA QQQQ 位置不明"_s)), 0));
  EXPECT_EQ(report(), QString());
  // What was chosen and left the list is chosen no more.
  setAutoList(program().tables, u"RJTT"_s);
  timers_.step();
  EXPECT_EQ(listed().size(), 1);
  EXPECT_EQ(report(), QString());
}

} // namespace
} // namespace soran
