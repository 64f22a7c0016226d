// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/map_drawing.h"

#include "base/utc.h"
#include "desk/verdict.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QDateTime mapTime = inUtc(QDate(2026, 11, 24), QTime(5, 12));
const QString goodWeather = u"36010KT 9999 FEW030 12/02 Q1018"_s;
const QString badWeather = u"36010KT 0300 FG VV001 02/02 Q1018"_s;
const QString poorWeather = u"36010KT 1500 BR BKN030 12/02 Q1018"_s;
const Projection japan({36, 138}, 40, 800, 600);

MapStation station(const QString& code, const QString& weather, std::optional<EarthPosition> position) {
  const Limits limits = Limits::of(SettingsRecord::standard(u"9"_s));
  const BoardReports reports{.metar = code + u" 240500Z " + weather,
                             .time = mapTime.addSecs(-720),
                             .times = {mapTime.addSecs(-720)}};
  return {boardRow(StationCode(code), reports, limits, mapTime), position};
}

QStringList plotted(const MapPicture& picture) {
  QStringList codes;
  for (const PlacedStation& placed : picture.placed) {
    if (placed.isPlotted)
      codes.append(placed.code.text());
  }
  return codes;
}

Sigmet sigmet(const QString& name, int fromHour, int toHour, const QList<EarthPosition>& area) {
  return {.heading = u"RJJJ SIGMET "_s + name,
          .text = u"SEV TURB"_s,
          .from = mapTime.addSecs(fromHour * 3600),
          .to = mapTime.addSecs(toHour * 3600),
          .area = area};
}

} // namespace

TEST(MapDrawing, ThinsTheBetterStations) {
  // Three in one place, one apart, one without a position.
  const std::vector<MapStation> stations = {station(u"RJAA"_s, goodWeather, EarthPosition{36, 138}),
                                            station(u"RJBB"_s, badWeather, EarthPosition{36.1, 138.2}),
                                            station(u"RJCC"_s, poorWeather, EarthPosition{36, 138.1}),
                                            station(u"RJDD"_s, goodWeather, EarthPosition{33, 132}),
                                            station(u"RJEE"_s, badWeather, std::nullopt)};
  struct {
    double zoom;
    QString chosen;
    QStringList plotted;
  } const cases[] = {
      {1, {}, {u"RJBB"_s, u"RJDD"_s}},
      {1, u"RJAA"_s, {u"RJAA"_s, u"RJDD"_s}},
      {1, u"ZZZZ"_s, {u"RJBB"_s, u"RJDD"_s}},
      {90, {}, {u"RJCC"_s, u"RJAA"_s}}, // the others lie beyond the view
  };
  for (const auto& c : cases) {
    const MapPicture picture = drawStations(stations, japan.zoomed(c.zoom, japan.middle()), 12, c.chosen);
    EXPECT_EQ(plotted(picture), c.plotted) << c.zoom << c.chosen.toStdString();
  }
  const MapPicture picture = drawStations(stations, japan, 12);
  EXPECT_EQ(picture.placed.size(), 4U);
  // What has no room is a mark that tells its state.
  QStringList marks;
  for (const Shape& shape : picture.drawing.shapes) {
    if (shape.kind == ShapeKind::Dot && shape.element == u"STATE")
      marks.append(shape.words);
  }
  EXPECT_EQ(marks, (QStringList{u"RJCC L2"_s, u"RJAA OK"_s}));
}

TEST(MapDrawing, NoLettersStandOnEachOther) {
  std::vector<MapStation> stations;
  for (int i = 0; i < 400; ++i)
    stations.push_back(station(u"RJ%1"_s.arg(i),
                               i % 7 == 0   ? badWeather
                               : i % 3 == 0 ? poorWeather
                                            : goodWeather,
                               EarthPosition{36 + 6 * std::sin(i * 1.7), 138 + 8 * std::cos(i * 2.9)}));
  const MapPicture picture = drawStations(stations, japan, 12);
  std::vector<Box> boxes;
  for (const PlacedStation& placed : picture.placed) {
    if (!placed.isPlotted)
      continue;
    const auto row = std::ranges::find(stations, placed.code, [](const auto& each) { return each.row.code; });
    boxes.push_back(plotBox(row->row, 12).movedTo(placed.at));
  }
  EXPECT_GT(boxes.size(), 20U);
  for (size_t i = 0; i < boxes.size(); ++i) {
    for (size_t j = 0; j < i; ++j)
      EXPECT_FALSE(boxes[i].overlaps(boxes[j])) << i << ' ' << j;
  }
  // Moved a little, the map shows the same ones.
  QStringList before = plotted(picture);
  QStringList after = plotted(drawStations(stations, japan.panned(3, -2), 12));
  before.sort();
  after.sort();
  EXPECT_EQ(before, after);
}

TEST(MapDrawing, FindsTheStationUnderAPoint) {
  const std::vector<MapStation> stations = {station(u"RJAA"_s, goodWeather, EarthPosition{36, 138}),
                                            station(u"NFFN"_s, goodWeather, EarthPosition{36, 138.5}),
                                            station(u"PADK"_s, goodWeather, EarthPosition{36, -176.6})};
  const MapPicture picture = drawStations(stations, japan, 12);
  EXPECT_EQ(stationAt(picture, {402, 297}, 10), StationCode(u"RJAA"_s));
  EXPECT_EQ(stationAt(picture, {412, 300}, 10), StationCode(u"NFFN"_s));
  EXPECT_FALSE(stationAt(picture, {500, 300}, 10));
  EXPECT_FALSE(stationAt(MapPicture(), {400, 300}, 1000));
  // Beyond the date line the next one is a neighbour.
  const MapPicture east = drawStations(stations, {{36, 179}, 40, 800, 600}, 12);
  EXPECT_EQ(stationAt(east, {576, 300}, 10), StationCode(u"PADK"_s));
}

TEST(MapDrawing, TellsTheDegreesOfItsLines) {
  struct {
    EarthPosition centre;
    double scale;
    QStringList meridians, parallels;
  } const cases[] = {
      {{36, 138},
       10,
       {u"E110"_s, u"E120"_s, u"E130"_s, u"E140"_s, u"E150"_s, u"E160"_s, u"E170"_s},
       {u"N20"_s, u"N30"_s, u"N40"_s, u"N50"_s}},
      {{0, 180},
       160,
       {u"E178"_s, u"E17830"_s, u"E179"_s, u"E17930"_s, u"W180"_s, u"W17930"_s, u"W179"_s, u"W17830"_s,
        u"W178"_s},
       {u"S0130"_s, u"S01"_s, u"S0030"_s, u"N00"_s, u"N0030"_s, u"N01"_s, u"N0130"_s}},
  };
  for (const auto& c : cases) {
    const Projection projection(c.centre, c.scale, 800, 600);
    QStringList meridians, parallels;
    for (const Shape& shape : drawDegrees(projection, 10).shapes) {
      const bool isMeridian = shape.text.startsWith(u'E') || shape.text.startsWith(u'W');
      (isMeridian ? meridians : parallels).append(shape.text);
      // Each stands on its own line.
      const double degrees = shape.text.mid(1, isMeridian ? 3 : 2).toDouble() +
                             shape.text.mid(isMeridian ? 4 : 3).toDouble() / 60;
      const double side = QStringView(u"SW").contains(shape.text.front()) ? -degrees : degrees;
      const Point at = shape.points.front();
      if (isMeridian)
        EXPECT_NEAR(at.x, projection.toPlane({c.centre.latitude, side}).x, 1e-6) << shape.text.toStdString();
      else
        EXPECT_NEAR(at.y, projection.toPlane({side, c.centre.longitude}).y, 1e-6) << shape.text.toStdString();
    }
    EXPECT_EQ(meridians, c.meridians);
    EXPECT_EQ(parallels, c.parallels);
  }
}

TEST(MapDrawing, OutlinesTheAreasOfSigmets) {
  const QList<EarthPosition> area = {{35, 137}, {37, 137}, {37, 139}, {35, 139}};
  const QList<EarthPosition> overDateLine = {{35, 179}, {37, 179}, {37, -179}, {35, -179}};
  Sigmet whole = sigmet(u"W1"_s, -1, 1, {});
  whole.isWholeRegion = true;
  const QList<Sigmet> sigmets = {sigmet(u"A1"_s, -1, 1, area), sigmet(u"B1"_s, 1, 3, area),
                                 sigmet(u"C1"_s, -3, 0, area), whole,
                                 sigmet(u"D1"_s, -1, 1, {}),   sigmet(u"E1"_s, -1, 1, overDateLine)};
  QStringList texts;
  QList<ShapeKind> outlines;
  for (const Shape& shape : drawSigmets(sigmets, japan, mapTime, 12).shapes) {
    if (shape.kind == ShapeKind::Text)
      texts.append(shape.text);
    else
      outlines.append(shape.kind);
    EXPECT_EQ(shape.words, u"SEV TURB");
  }
  EXPECT_EQ(texts, (QStringList{u"SIGMET A1"_s, u"SIGMET B1"_s, u"SIGMET W1 WHOLE FIR"_s,
                                u"SIGMET D1 AREA NOT READ"_s, u"SIGMET E1"_s}));
  EXPECT_EQ(outlines, (QList{ShapeKind::Line, ShapeKind::Dashed, ShapeKind::Line}));
  const Drawing drawing = drawSigmets({sigmets.last()}, {{36, 180}, 40, 800, 600}, mapTime, 12);
  for (const Point& point : drawing.shapes.front().points)
    EXPECT_NEAR(std::abs(point.x - 400), 40, 1e-6);
  EXPECT_EQ(drawing.shapes.front().points.size(), 5U);
}
