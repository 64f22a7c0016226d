// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/meteogram_drawing.h"

#include "base/text.h"
#include "pictures/graph_panel.h"
#include "pictures/weather_symbol.h"
#include "pictures/wind_barb.h"
#include "reports/forecast_at.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr double titleHeight = 22;
constexpr double axisHeight = 18;
constexpr double symbolHeight = 70;
constexpr double symbolRoom = 26; // that a symbol takes
constexpr double letters = 12;
constexpr qint64 secondsAnHour = 3600;

/// A value that an element has, with its words.
struct Told {
  double value;
  Words words;
};
using Reading = std::optional<Told> (*)(const ElementValues&);

std::optional<Told> speedOf(const ElementValues& values) {
  if (!values.wind || !values.wind->speed)
    return std::nullopt;
  return Told{inKnots(*values.wind->speed, values.wind->unit), values.wind->words};
}
std::optional<Told> gustOf(const ElementValues& values) {
  if (!values.wind || !values.wind->gust)
    return std::nullopt;
  return Told{inKnots(*values.wind->gust, values.wind->unit), values.wind->words};
}
std::optional<Told> visibilityOf(const ElementValues& values) {
  const Words* words = values.visibilityWords();
  return words ? std::optional(Told{double(*values.visibilityMetres()), *words}) : std::nullopt;
}
std::optional<Told> ceilingOf(const ElementValues& values) {
  const Ceiling* ceiling = values.ceiling();
  return ceiling ? std::optional(Told{double(ceiling->feet), ceiling->words}) : std::nullopt;
}
std::optional<Told> airOf(const ElementValues& values) {
  return values.temperatures && values.temperatures->air
             ? std::optional(Told{double(*values.temperatures->air), values.temperatures->words})
             : std::nullopt;
}
std::optional<Told> dewPointOf(const ElementValues& values) {
  return values.temperatures && values.temperatures->dewPoint
             ? std::optional(Told{double(*values.temperatures->dewPoint), values.temperatures->words})
             : std::nullopt;
}
std::optional<Told> pressureOf(const ElementValues& values) {
  return values.pressure ? std::optional(Told{values.pressure->hectopascals, values.pressure->words})
                         : std::nullopt;
}

/// A curve of a panel.
struct Curve {
  QString element;
  Ink ink;
  Reading reading;
};

/// A report or a part of a forecast as the symbols above the panels have it: they stand at `x`, or where that
/// is taken up to `last`.
struct Placed {
  double x;
  double last;
  QStringView text;
  const ElementValues* values;
  QDateTime time;
};

/// Draws a meteogram, panel by panel.
class Picture {
 public:
  Picture(const Meteogram& meteogram, const SettingsRecord& settings, double width, double height)
      : meteogram_(meteogram),
        settings_(settings), times_{meteogram.from, meteogram.to, width}, drawing_{.width = width,
                                                                                   .height = height} {}

  Drawing draw();

 private:
  double x(const QDateTime& time) const { return times_.x(time); }
  void drawGround();
  void drawHours();
  void drawSymbols();
  void drawPanel(const GraphPanel& panel, const QString& unit, std::initializer_list<Curve> curves);
  void drawObserved(const GraphPanel& panel, const Curve& curve);
  void drawForecast(const GraphPanel& panel, const Curve& curve);
  void drawLimits(const GraphPanel& panel, std::optional<int> ConditionLimits::*limit);
  void add(std::vector<Shape> shapes, const QString& element, const QDateTime& time, QStringView words);
  std::vector<Placed> placesForSymbols() const;
  void drawWhereThereIsRoom(std::vector<Placed> places, const std::function<double(const Placed&)>& rank,
                            void (Picture::*drawOne)(const Placed&));
  void drawWeather(const Placed& one);
  void drawArrow(const Placed& one);
  std::pair<double, double> rangeOf(std::initializer_list<Curve> curves) const;
  void label(const QString& text, Point at, TextPlace place, Ink ink = Ink::Text) {
    drawing_.add(
        {.kind = ShapeKind::Text, .ink = ink, .points = {at}, .size = letters, .text = text, .place = place});
  }

  const Meteogram& meteogram_;
  const SettingsRecord& settings_;
  TimeAxis times_;
  Drawing drawing_;
};

Drawing Picture::draw() {
  const double top = titleHeight + symbolHeight;
  const double room = drawing_.height - axisHeight - top;
  auto place = [&, at = top](double share) mutable {
    const double from = at;
    at += room * share;
    return std::pair(from, at - letters);
  };
  const Curve wind{u"WIND"_s, Ink::Wind, speedOf};
  const Curve gust{u"GUST"_s, Ink::Gust, gustOf};
  const Curve air{u"T"_s, Ink::Air, airOf};
  const Curve dewPoint{u"TD"_s, Ink::DewPoint, dewPointOf};
  const Curve pressure{u"QNH"_s, Ink::Pressure, pressureOf};
  drawGround();
  drawSymbols();
  const auto windRange = rangeOf({wind, gust});
  drawPanel(GraphPanel::linear(place(0.18), 0, std::max(20.0, windRange.second), 10), u"KT"_s, {wind, gust});
  const GraphPanel visibility = GraphPanel::logarithmic(place(0.24), {100, 400, 800, 1600, 5000, 10000});
  drawPanel(visibility, u"VIS m"_s, {{u"VIS"_s, Ink::Visibility, visibilityOf}});
  drawLimits(visibility, &ConditionLimits::visibility);
  const GraphPanel ceiling = GraphPanel::logarithmic(place(0.24), {100, 200, 500, 1000, 3000, 10000});
  drawPanel(ceiling, u"CIG ft"_s, {{u"CIG"_s, Ink::Ceiling, ceilingOf}});
  drawLimits(ceiling, &ConditionLimits::ceiling);
  const auto [coldest, warmest] = rangeOf({air, dewPoint});
  drawPanel(GraphPanel::linear(place(0.18), coldest, warmest, 5), u"T/TD"_s, {air, dewPoint});
  const auto [lowest, highest] = rangeOf({pressure});
  drawPanel(GraphPanel::linear(place(0.16), lowest, highest, 5), u"QNH"_s, {pressure});
  drawHours();
  return std::move(drawing_);
}

/// The least and the greatest value of the curves; both 0 where there is none.
std::pair<double, double> Picture::rangeOf(std::initializer_list<Curve> curves) const {
  std::vector<double> all;
  for (const Curve& curve : curves) {
    const auto take = [&](const ElementValues& values) {
      if (const auto told = curve.reading(values))
        all.push_back(told->value);
    };
    std::ranges::for_each(meteogram_.observed, take, &Observed::values);
    std::ranges::for_each(meteogram_.taf, take, &ForecastSlice::values);
  }
  if (all.empty())
    return {0, 0};
  const auto [least, greatest] = std::ranges::minmax(all);
  return {least, greatest};
}

void Picture::drawGround() {
  const double bottom = drawing_.height - axisHeight;
  for (const Night& night : meteogram_.nights) {
    const double from = x(night.from);
    const double to = x(night.to);
    drawing_.add({.kind = ShapeKind::Area,
                  .ink = Ink::Night,
                  .points = {{from, titleHeight}, {to, titleHeight}, {to, bottom}, {from, bottom}},
                  .element = u"NIGHT"_s,
                  .time = night.from});
  }
  constexpr int longestName = 24;
  label(meteogram_.code.text() + u"  " + meteogram_.name.left(longestName) + u"  " +
            displayedTime(meteogram_.now, settings_) + u"  " +
            (meteogram_.isEmpty() ? u"NO REPORT"_s : meteogram_.tafNote) +
            (meteogram_.knowsNights ? u"" : u"  NO SUN TIMES") +
            (meteogram_.isDemonstration ? u"  " + demonstrationMark : QString()),
        {6, titleHeight / 2}, TextPlace::Left);
}

void Picture::drawHours() {
  const double bottom = drawing_.height - axisHeight;
  const qint64 hours = meteogram_.from.secsTo(meteogram_.to) / secondsAnHour;
  const int every = hours > 36 ? 6 : hours > 12 ? 3 : 1;
  for (QDateTime time = meteogram_.from; time <= meteogram_.to; time = time.addSecs(secondsAnHour)) {
    if (time.time().hour() % every != 0)
      continue;
    drawing_.add({.ink = Ink::Faint, .points = {{x(time), titleHeight}, {x(time), bottom}}, .size = 0.6});
    label(displayedTime(time, settings_).chopped(3) + displayedTime(time, settings_).last(1),
          {x(time), bottom + axisHeight / 2}, TextPlace::Centre);
  }
  drawing_.add({.ink = Ink::Now,
                .points = {{x(meteogram_.now), titleHeight}, {x(meteogram_.now), bottom}},
                .size = 1.6,
                .element = u"NOW"_s,
                .time = meteogram_.now});
}

void Picture::add(std::vector<Shape> shapes, const QString& element, const QDateTime& time,
                  QStringView words) {
  for (Shape& shape : shapes) {
    shape.element = element;
    shape.time = time;
    shape.words = words.toString();
    drawing_.add(std::move(shape));
  }
}

/// The gravest of the groups of weather.
QStringView worstOf(QStringView text, const std::vector<Words>& groups) {
  const auto rank = [text](const Words& group) { return weatherRank(group.in(text)); };
  return std::ranges::max_element(groups, {}, rank)->in(text);
}

void Picture::drawWeather(const Placed& one) {
  constexpr double symbolSize = 18;
  const QStringView group = worstOf(one.text, one.values->weather);
  add(weatherSymbol(group, {one.x, titleHeight + 12}, symbolSize), u"WX"_s, one.time, group);
}

void Picture::drawArrow(const Placed& one) {
  constexpr double barbLength = 20;
  add(windBarb(*one.values->wind, {one.x, titleHeight + symbolHeight * 0.62}, barbLength,
               meteogram_.isSouthern),
      u"BARB"_s, one.time, one.values->wind->words.in(one.text));
}

std::vector<Placed> Picture::placesForSymbols() const {
  std::vector<Placed> places;
  // The newest first: it goes before one that is as grave.
  for (auto next = meteogram_.observed.rbegin(); next != meteogram_.observed.rend(); ++next)
    places.push_back({x(next->time), x(next->time), next->text, &next->values, next->time});
  for (const ForecastSlice& slice : meteogram_.taf)
    places.push_back({std::max(x(slice.from), x(meteogram_.now) + symbolRoom / 2),
                      x(slice.to) - symbolRoom / 2, meteogram_.tafText, &slice.values, slice.from});
  return places;
}

/// The gravest first, each where no other stands: a part of the forecast may move within its time.
void Picture::drawWhereThereIsRoom(std::vector<Placed> places,
                                   const std::function<double(const Placed&)>& rank,
                                   void (Picture::*drawOne)(const Placed&)) {
  std::erase_if(places, [&](const Placed& one) { return rank(one) < 0; });
  std::ranges::stable_sort(places, std::ranges::greater(), rank);
  std::vector<double> taken;
  for (Placed one : places) {
    const auto isFree = [&](double at) {
      return std::ranges::none_of(taken, [at](double other) { return std::abs(other - at) < symbolRoom; });
    };
    while (!isFree(one.x) && one.x < one.last)
      one.x = std::min(one.x + symbolRoom / 4, one.last);
    if (!isFree(one.x) || one.x > one.last)
      continue;
    taken.push_back(one.x);
    (this->*drawOne)(one);
  }
}

void Picture::drawSymbols() {
  const std::vector<Placed> places = placesForSymbols();
  const auto weather = [](const Placed& one) {
    const std::vector<Words>& groups = one.values->weather;
    return groups.empty() ? -1.0 : double(weatherRank(worstOf(one.text, groups)));
  };
  const auto wind = [](const Placed& one) {
    const std::optional<Wind>& told = one.values->wind;
    if (!told || (!told->direction && told->speed && told->speed->value > 0))
      return -1.0; // nothing to draw
    const double gust = told->gust ? inKnots(*told->gust, told->unit) : 0;
    return std::max(gust, told->speed ? inKnots(*told->speed, told->unit) : 0);
  };
  drawWhereThereIsRoom(places, weather, &Picture::drawWeather);
  drawWhereThereIsRoom(places, wind, &Picture::drawArrow);
}

void Picture::drawPanel(const GraphPanel& panel, const QString& unit, std::initializer_list<Curve> curves) {
  for (const double value : panel.marks()) {
    drawing_.add({.ink = Ink::Faint,
                  .points = {{times_.left(), panel.y(value)}, {times_.right(), panel.y(value)}},
                  .size = 0.6});
    label(QString::number(value), {times_.left() - 5, panel.y(value)}, TextPlace::Right);
  }
  const double low = panel.bottom();
  drawing_.add({.ink = Ink::Frame,
                .points = {{times_.left(), panel.top()},
                           {times_.right(), panel.top()},
                           {times_.right(), low},
                           {times_.left(), low},
                           {times_.left(), panel.top()}}});
  label(unit, {times_.right() + 5, (panel.top() + low) / 2}, TextPlace::Left);
  for (const Curve& curve : curves) {
    drawForecast(panel, curve);
    drawObserved(panel, curve);
  }
}

void Picture::drawObserved(const GraphPanel& panel, const Curve& curve) {
  constexpr qint64 longestGap = secondsAnHour * 3 / 2;
  Shape line{.ink = curve.ink, .size = 1.6};
  QDateTime last;
  for (const Observed& report : meteogram_.observed) {
    const auto told = curve.reading(report.values);
    if (!told || (last.isValid() && last.secsTo(report.time) > longestGap))
      drawing_.add(std::exchange(line, {.ink = curve.ink, .size = 1.6}));
    if (!told)
      continue;
    last = report.time;
    line.points.push_back({x(report.time), panel.y(told->value)});
    drawing_.add({.kind = ShapeKind::Dot,
                  .ink = curve.ink,
                  .points = {line.points.back()},
                  .size = 2.2,
                  .element = curve.element,
                  .time = report.time,
                  .value = told->value,
                  .words = told->words.in(report.text).toString()});
  }
  drawing_.add(std::move(line));
}

void Picture::drawForecast(const GraphPanel& panel, const Curve& curve) {
  for (const ForecastSlice& slice : meteogram_.taf) {
    const auto told = curve.reading(slice.values);
    if (!told)
      continue;
    const double from = x(std::max(slice.from, meteogram_.now));
    const double to = x(std::min(slice.to, meteogram_.to));
    const double y = panel.y(told->value);
    Shape shape{.kind = slice.kind == SliceKind::Becoming ? ShapeKind::Dashed : ShapeKind::Line,
                .ink = curve.ink,
                .points = {{from, y}, {to, y}},
                .size = 1.6,
                .element = curve.element,
                .time = slice.from,
                .value = told->value,
                .words = told->words.in(meteogram_.tafText).toString()};
    if (slice.isTemporary()) {
      shape.kind = ShapeKind::Hatched;
      // What lies at the foot of the axis or below it is the worst of all.
      constexpr double leastHeight = 5;
      const double top = std::min(y, panel.bottom() - leastHeight);
      shape.points = {{from, top}, {to, top}, {to, panel.bottom()}, {from, panel.bottom()}};
    }
    drawing_.add(std::move(shape));
  }
}

void Picture::drawLimits(const GraphPanel& panel, std::optional<int> ConditionLimits::*limit) {
  constexpr Ink inks[] = {Ink::Limit1, Ink::Limit2, Ink::Limit3};
  for (size_t i = 0; i < meteogram_.limits.conditions.size(); ++i) {
    const auto& condition = meteogram_.limits.conditions[i];
    if (!condition || !((*condition).*limit))
      continue;
    const int value = *((*condition).*limit);
    drawing_.add({.kind = ShapeKind::Dashed,
                  .ink = inks[i],
                  .points = {{times_.left(), panel.y(value)}, {times_.right(), panel.y(value)}},
                  .element = u"LIMIT"_s,
                  .value = double(value)});
    // Beside one another, because two limits may be close or the same.
    const double right = times_.right() - 12 - 20 * double(i);
    label(u'L' + QString::number(i + 1), {right, panel.y(value) - 6}, TextPlace::Centre, inks[i]);
  }
}

} // namespace

Drawing meteogramDrawing(const Meteogram& meteogram, const SettingsRecord& settings, double width,
                         double height) {
  return Picture(meteogram, settings, width, height).draw();
}

QDateTime timeAt(const Meteogram& meteogram, double x, double width) {
  return TimeAxis{meteogram.from, meteogram.to, width}.time(x);
}

} // namespace soran
