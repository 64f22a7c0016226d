// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/element_values.h"

#include "reports/group_shapes.h"
#include "reports/group_walk.h"
#include "reports/limit_readings.h"
#include "reports/weather_words.h"

#include <algorithm>
#include <cmath>

namespace soran {

namespace {

constexpr int feetAStep = 100; // of a height of cloud
constexpr double metresAFoot = 0.3048;
constexpr double metresAMile = 1609.344;
constexpr double hectopascalsAHundredthOfAnInch = 0.338639;

Bound boundOf(QStringView figures) {
  if (figures.startsWith(u'M'))
    return Bound::Below;
  return figures.startsWith(u'P') ? Bound::Above : Bound::Exact;
}

/// The number of figures that a letter may stand ahead of.
int numberOf(QStringView figures) {
  return leadingInteger(boundOf(figures) == Bound::Exact ? figures : figures.sliced(1));
}

/// What follows the elements of a forecast: extremes of temperature, remarks, notes on amendments with times
/// of their own, and another report.
bool beginsNotes(QStringView group) {
  constexpr QStringView words[] = {u"LAST", u"NEXT", u"AMD", u"AMDS", u"COR",    u"RTD",
                                   u"FCST", u"NO",   u"LTD", u"RMK",  u"LIMITED"};
  if (hasShape(group, {u"######Z"}))
    return true;
  return hasShape(group.first(std::min<qsizetype>(group.size(), 5)),
                  {u"TX##/", u"TN##/", u"TXM##", u"TNM##"}) ||
         std::ranges::find(words, group) != std::end(words);
}

/// A forecast behind the observation in another form than BECMG and TEMPO, as some countries have it, or
/// another report.
bool beginsWhatIsToCome(QStringView group) {
  constexpr QStringView words[] = {u"INTER", u"GRADU", u"RAPID", u"FCST"};
  return hasShape(group, {u"FM####", u"FM######", u"PROB##", u"######Z"}) ||
         std::ranges::find(words, group) != std::end(words);
}

bool isClearSky(QStringView group) {
  return group == u"NSC" || group == u"SKC" || group == u"NCD" || group == u"CLR";
}

std::optional<Speed> speedOf(QStringView figures) {
  if (figures.isEmpty() || figures.startsWith(u'/'))
    return std::nullopt;
  return Speed{numberOf(figures), boundOf(figures)};
}

std::optional<int> degreesOf(QStringView half) {
  if (half.isEmpty() || half.startsWith(u'/') || half.startsWith(u'X'))
    return std::nullopt;
  return half.startsWith(u'M') ? -leadingInteger(half.sliced(1)) : leadingInteger(half);
}

/// Whether a group that is none of an element must have been meant for one.
bool isGarbled(QStringView group) {
  for (const QStringView word : {u"FEW", u"SCT", u"BKN", u"OVC", u"VV"}) {
    if (group.startsWith(word))
      return true;
  }
  const auto isFigure = [](QChar c) { return isAsciiDigit(c) || c == u'O'; };
  const auto digits = std::ranges::count_if(group, isAsciiDigit);
  const bool areFigures = digits >= 2 && std::ranges::all_of(group, isFigure);
  const bool holdsLetter = group.contains(u'O');
  const bool isWind =
      (group.endsWith(u"KT") || group.endsWith(u"MPS")) && !group.contains(u'/') && group.size() >= 6;
  const bool isRange = group.startsWith(u'R') && group.contains(u"/O");
  return (areFigures && (group.size() == 3 || (group.size() == 4 && holdsLetter))) ||
         (isWind && digits >= 2) || (isRange && digits >= 2);
}

/// Takes the groups of one stretch, each by the first reader that knows it.
class ElementReader {
 public:
  explicit ElementReader(QStringView text) : text_(text) {}

  void take(const Words& words) {
    words_ = words;
    group_ = words.in(text_);
    // Every reader looks at the shape of the whole group, so their order does not matter.
    const bool taken = takeWind() || takeWord() || takeVisibility() || takeRunwayRange() || takeCloud() ||
                       takeTemperatures() || takePressure() || takeWeather();
    hasTaken_ = taken || hasTaken_;
    if (!taken && isGarbled(group_))
      values_.unread.push_back(words_);
    before_ = words;
  }
  /// A group of an element was there, of slashes perhaps.
  bool hasTaken() const { return hasTaken_; }

  ElementValues values() && { return std::move(values_); }

 private:
  bool takeWind();
  bool takeWord();
  bool takeVisibility();
  bool takeMiles();
  bool takeRunwayRange();
  bool takeCloud();
  bool takeTemperatures();
  bool takePressure();
  bool takeWeather();
  void keepVisibility(const Visibility& visibility);
  void keepCeiling(const colouring::CeilingForm& form, std::optional<Ceiling>& lowest);
  Position1 pos() const { return Position1::ofIndex(words_.start); }

  QStringView text_;
  QStringView group_;
  Words words_;
  Words before_; ///< the group ahead
  bool hasTaken_ = false;
  int heightBelow_ = 0; ///< of the layer ahead, in hundreds of feet; 0 where there is none
  ElementValues values_;
};

bool ElementReader::takeWind() {
  if (hasShape(group_, {u"###V###"})) {
    values_.sector = WindSector{leadingInteger(group_.first(3)), leadingInteger(group_.sliced(4)), words_};
    return true;
  }
  if (!group_.endsWith(u'T') && !group_.endsWith(u'S') && !group_.endsWith(u'H'))
    return false;
  const std::optional<WindGroup> read = windGroup(group_);
  if (!read)
    return false;
  Wind wind{.words = words_};
  wind.isVariable = read->direction == u"VRB";
  if (isAsciiDigit(read->direction.front()))
    wind.direction = leadingInteger(read->direction);
  wind.speed = speedOf(read->speed);
  wind.gust = speedOf(read->gust);
  if (read->unit != u"KT")
    wind.unit = read->unit == u"MPS" ? SpeedUnit::MetresPerSecond : SpeedUnit::KilometresPerHour;
  if (wind.direction || wind.isVariable || wind.speed)
    values_.wind = wind;
  return true;
}

bool ElementReader::takeWord() {
  if (group_ == u"CAVOK")
    values_.cavok = words_;
  else if (group_ == u"NSW")
    values_.noWeather = words_;
  else if (group_ == u"//")
    values_.hidesWeather = true;
  else if (isClearSky(group_))
    values_.clouds.push_back(words_);
  else
    return false;
  return true;
}

void ElementReader::keepVisibility(const Visibility& visibility) {
  if (!values_.visibility || visibility.metres < values_.visibility->metres)
    values_.visibility = visibility;
}

bool ElementReader::takeVisibility() {
  constexpr QStringView aheadOfOthers[] = {u"AFT", u"MNM", u"MAX", u"TIL", u"NEXT"};
  if (std::ranges::find(aheadOfOthers, before_.in(text_)) != std::end(aheadOfOthers))
    return false;
  if (hasShape(group_,
               {u"####N", u"####E", u"####S", u"####W", u"####NE", u"####NW", u"####SE", u"####SW"})) {
    values_.directional = words_;
    return true;
  }
  if (group_.size() == 4 || group_.endsWith(u"NDV")) {
    const auto reading = fourFiguresAt(text_, pos());
    if (reading && hasShape(group_, {u"####", u"####NDV"})) {
      keepVisibility({.metres = int(reading->value), .words = words_});
      return true;
    }
  }
  if (hasShape(group_, {u"#KM", u"##KM"})) {
    keepVisibility({.metres = leadingInteger(group_) * 1000, .words = words_});
    return true;
  }
  return takeMiles();
}

bool ElementReader::takeMiles() {
  if (!group_.endsWith(u"SM") || !isVisibility(group_) || group_.startsWith(u'/'))
    return false;
  const QStringView figures = group_.chopped(2);
  const QStringView plain = boundOf(figures) == Bound::Exact ? figures : figures.sliced(1);
  const qsizetype slash = plain.indexOf(u'/');
  double miles = leadingNumber(plain);
  Words words = words_;
  if (slash > 0) {
    const double parts = leadingNumber(plain.sliced(slash + 1));
    if (parts == 0)
      return false;
    miles /= parts;
    // "1 1/2SM": the whole miles are a group of their own.
    if (hasShape(before_.in(text_), {u"#"})) {
      miles += leadingNumber(before_.in(text_));
      words = {before_.start, words_.end() - before_.start};
    }
  }
  keepVisibility({int(std::lround(miles * metresAMile)), boundOf(figures), words});
  return true;
}

bool ElementReader::takeRunwayRange() {
  const std::optional<RunwayRangeGroup> read = runwayRangeGroup(group_);
  if (!read)
    return false;
  std::optional<LimitReading> least;
  readRunwayRanges(text_.first(words_.end()), pos(), [&least](const LimitReading& reading) {
    if (!least || reading.value < least->value)
      least = reading;
  });
  if (!least)
    return true;
  const QChar ahead = at1(text_, least->pos - 1);
  RunwayRange range{.runway = {words_.start + 1, read->runway.size()},
                    .metres = int(least->value),
                    .bound = ahead == u'M'   ? Bound::Below
                             : ahead == u'P' ? Bound::Above
                                             : Bound::Exact,
                    .tendency = read->tendency,
                    .words = words_};
  if (read->feet)
    range.metres = int(std::lround(least->value * metresAFoot));
  values_.runwayRanges.push_back(range);
  return true;
}

bool ElementReader::takeCloud() {
  // Layers stand from the lowest on: one whose height is missing lies above those ahead of it.
  constexpr int lowHundreds = 10;
  const bool isVertical = group_.startsWith(colouring::verticalVisibility.word);
  if (isVertical ? !hasShape(group_, {u"VV###", u"VV///"}) : !isCloudLayer(group_))
    return false;
  values_.clouds.push_back(words_);
  // A CB or TCU that was seen by radar stands behind layers that were measured.
  constexpr qsizetype withoutType = 6;
  const bool isAlone = values_.clouds.size() == 1;
  const bool isUnknown = group_.startsWith(u"///") && (group_.size() == withoutType || isAlone);
  values_.hidesCeiling |= isUnknown;
  if (isUnknown && !values_.unknownCeiling)
    values_.unknownCeiling = words_;
  if (isVertical)
    keepCeiling(colouring::verticalVisibility, values_.vertical);
  for (const colouring::CeilingForm& form : colouring::ceilingForms) {
    if (!form.oktas && group_.startsWith(form.word)) {
      keepCeiling(form, values_.layer);
      const bool hasNoHeight = group_.sliced(form.word.size()).startsWith(u"///");
      values_.hidesCeiling |= hasNoHeight && heightBelow_ < lowHundreds;
      if (hasNoHeight && !values_.unknownCeiling)
        values_.unknownCeiling = words_;
    }
  }
  if (hasShape(group_.first(std::min<qsizetype>(6, group_.size())),
               {u"FEW###", u"SCT###", u"BKN###", u"OVC###"}))
    heightBelow_ = leadingInteger(group_.sliced(3));
  return true;
}

void ElementReader::keepCeiling(const colouring::CeilingForm& form, std::optional<Ceiling>& lowest) {
  const auto reading = ceilingAt(text_, form, pos());
  if (!reading)
    return;
  const int feet = int(reading->value) * feetAStep;
  if (!lowest || feet < lowest->feet)
    lowest = Ceiling{feet, group_.sliced(form.word.size()) == u"///", words_};
}

bool ElementReader::takeTemperatures() {
  if (!isTemperatures(group_))
    return false;
  const TemperatureGroup halves = temperatureGroup(group_);
  const Temperatures read{degreesOf(halves.air), degreesOf(halves.dewPoint), words_};
  if (read.air || read.dewPoint)
    values_.temperatures = read;
  return true;
}

bool ElementReader::takePressure() {
  const bool isInches = hasShape(group_, {u"A####", u"QNH####INS"});
  if (!isInches && !hasShape(group_, {u"Q####"}))
    return isAltimeter(group_);
  const int figures = leadingInteger(group_.sliced(group_.startsWith(u"QNH") ? 3 : 1));
  if (isInches && values_.pressure)
    return true; // Q stands ahead of the same in inches
  values_.pressure = Pressure{isInches ? figures * hectopascalsAHundredthOfAnInch : figures, words_};
  return true;
}

bool ElementReader::takeWeather() {
  if (!isWeatherGroup(group_))
    return false;
  values_.weather.push_back(words_);
  return true;
}

} // namespace

ElementValues readElements(QStringView text, const Words& stretch) {
  ElementReader reader(text);
  GroupWalk walk(text, stretch);
  while (const std::optional<Words> group = walk.next()) {
    // Ahead of the elements the same words tell of the report itself.
    if (reader.hasTaken() && beginsNotes(group->in(text)))
      break;
    reader.take(*group);
  }
  return std::move(reader).values();
}

Words observationIn(QStringView text) {
  Words stretch{0, text.size()};
  bool begun = false;
  GroupWalk walk(text, stretch);
  while (const std::optional<Words> group = walk.next()) {
    const QStringView word = group->in(text);
    if (!begun && hasShape(word, {u"######Z"})) {
      begun = true;
      stretch = {group->end(), text.size() - group->end()};
    } else if (endsObservation(word) || (begun && beginsWhatIsToCome(word))) {
      stretch.length = group->start - stretch.start;
      break;
    }
  }
  return stretch;
}

} // namespace soran
