// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_times.h"

#include "base/text.h"

#include <cmath>

namespace soran {

namespace {

// The almanac's tables are fitted with these short values of pi; a longer one moves minutes.
constexpr double rad = 3.14159 / 180;
constexpr double rightAngle = 1.5708;

// Depression of the upper limb at rise and set (sine), refraction and the height of eye included.
constexpr double horizonSine = 0.01576549;

constexpr double japanOffset = 9;

double degreesOf(QStringView text, int degreeDigits) {
  const double degrees = leadingNumber(text.mid(0, degreeDigits)) +
                         leadingNumber(text.mid(degreeDigits, 2)) / 60 +
                         leadingNumber(text.mid(degreeDigits + 2, 2)) / 3600;
  return static_cast<float>(degrees);
}

double withinCircle(double degrees) {
  return degrees - std::floor(degrees / 360) * 360;
}

/// Days from the epoch of the series to the date.
double dayNumber(int year, int month, int day) {
  const double a = (year - 1900.0) / 4;
  const double f = a - std::floor(a);
  const double p = std::floor((month + 7) / 10.0);
  const double r = std::floor(1461 * a) + 31 * month + day + std::floor(1 - f) * (p - 1);
  return r - std::floor((month + 4.4) * 0.44) * p - 27424;
}

/// The sun of one day at one place. `hourAngle` starts as the sidereal value and stays so where the sun does
/// not cross the horizon.
class DaySun {
 public:
  DaySun(int year, int month, int day, QStringView latitude, QStringView longitude)
      : latitude_(degreesOf(latitude, 2)), longitude_(degreesOf(longitude, 3)), year_(year),
        dayNumber_(dayNumber(year, month, day)) {}

  double longitudeHours() const { return longitude_ / 15; }

  /// Moves the sun to `t` hours UTC and gives the equation term at it.
  double moveTo(double t) {
    position(t);
    const double e = greenwichAngle_ / 15 - t - 12;
    return e <= -23 ? e + 24 : e;
  }

  double tangentProduct() const { return std::tan(declination_ * rad) * std::tan(latitude_ * rad); }

  double hourAngle(double product) {
    const double x = -(horizonSine / std::cos(latitude_ * rad) / std::cos(declination_ * rad) + product);
    if (std::fabs(x) < 1)
      hourAngle_ = (rightAngle - std::atan(x / std::sqrt(1 - x * x))) / rad;
    return hourAngle_;
  }

 private:
  void position(double t) {
    const double years = dayNumber_ / 365.25 + t / 8766;
    const double t2 = years + 100 * ((0.8 * year_ - 1534.2) * 3.169e-10);
    const double obliquity = 23.44253 - 0.00013 * t2 + 0.00256 * std::cos((249 - 19.3 * t2) * rad) -
                             0.00015 * std::cos((720 * t2 + 198) * rad);
    const double sidereal = withinCircle(360.00769 * years + 99.0359 + 360 * (t / 24) +
                                         0.0044 * std::sin((68.64 - 19.34 * years) * rad) +
                                         0.0003 * std::sin((720 * years + 18) * rad));
    const double longitude = eclipticLongitude(t2);

    double ascension = std::atan(std::tan(longitude * rad) * std::cos(obliquity * rad)) / rad;
    if (longitude > 270)
      ascension += 360;
    else if (longitude > 90)
      ascension += 180;
    greenwichAngle_ = sidereal - ascension;
    while (greenwichAngle_ < 0)
      greenwichAngle_ += 360;
    hourAngle_ = longitude_ + greenwichAngle_;

    const double q = std::sin(obliquity * rad) * std::sin(longitude * rad);
    declination_ = std::atan(q / std::sqrt(1 - q * q)) / rad;
  }

  static double eclipticLongitude(double t2) {
    double longitude = withinCircle(360.00769 * t2) + 279.0358 +
                       (1.9159 - 0.00005 * t2) * std::sin((359.991 * t2 + 356.531) * rad);
    for (const SunTerm& term : sunSeries)
      longitude += term.amplitude * std::sin((term.rate * t2 + term.phase) * rad);
    return withinCircle(longitude);
  }

  double latitude_;
  double longitude_;
  int year_;
  double dayNumber_;
  double greenwichAngle_ = 0;
  double hourAngle_ = 0;
  double declination_ = 0;
};

QString clockText(double hours) {
  if (hours < 0)
    hours += 24;
  int hour = static_cast<int>(std::floor(hours));
  int minute = static_cast<int>(std::floor((hours - hour) * 60 + 0.5));
  while (minute >= 60) {
    minute -= 60;
    ++hour;
  }
  return twoDigits(hour) + twoDigits(minute);
}

QString transitText(const DaySun& sun, double hourAngle, double equation) {
  return clockText(12 - hourAngle / 15 - equation - sun.longitudeHours() + japanOffset);
}

} // namespace

QString SunriseTime(int year, int month, int day, QStringView latitude, QStringView longitude) {
  DaySun sun(year, month, day, latitude, longitude);
  const double equation = sun.moveTo(6 - sun.longitudeHours());
  return transitText(sun, sun.hourAngle(sun.tangentProduct()), equation);
}

QString SunsetTime(int year, int month, int day, QStringView latitude, QStringView longitude) {
  DaySun sun(year, month, day, latitude, longitude);
  // The almanac's sunset keeps the tangent product of 0 UTC; only the cosine follows the sun to the evening.
  sun.moveTo(0);
  const double product = sun.tangentProduct();
  const double equation = sun.moveTo(18 - sun.longitudeHours());
  return transitText(sun, -sun.hourAngle(product), equation);
}

} // namespace soran
