// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace soran {

/// The time along a picture of that width, between its margins.
class TimeAxis {
 public:
  TimeAxis(const QDateTime& from, const QDateTime& to, double width) : from_(from), to_(to), width_(width) {}

  double left() const { return 58; }
  double right() const { return width_ - 52; }
  double x(const QDateTime& time) const {
    return left() +
           (right() - left()) * double(from_.secsTo(time)) / double(std::max<qint64>(1, from_.secsTo(to_)));
  }
  /// Invalid beside it.
  QDateTime time(double x) const {
    if (x < left() || x > right())
      return {};
    return from_.addSecs(qint64((x - left()) / (right() - left()) * double(from_.secsTo(to_))));
  }

 private:
  QDateTime from_;
  QDateTime to_;
  double width_;
};

/// A graph's scale between two heights of a picture. Values beyond its ends lie on them.
class GraphPanel {
 public:
  /// From `low` to `high`, both widened to whole steps, of which there is at least one.
  static GraphPanel linear(std::pair<double, double> place, double low, double high, double step) {
    const double first = std::floor(low / step) * step;
    const double last = std::max(first + step, std::ceil(high / step) * step);
    // Five lines at most.
    const double apart = std::max(1.0, std::ceil((last - first) / step / 4)) * step;
    std::vector<double> marks{first};
    while (marks.back() < last)
      marks.push_back(marks.back() + apart);
    return {place, std::move(marks), false};
  }
  /// From the first to the last mark.
  static GraphPanel logarithmic(std::pair<double, double> place, std::vector<double> marks) {
    return {place, std::move(marks), true};
  }

  double top() const { return place_.first; }
  double bottom() const { return place_.second; }
  const std::vector<double>& marks() const { return marks_; }
  double y(double value) const {
    const double low = scaled(marks_.front());
    const double share =
        (scaled(std::clamp(value, marks_.front(), marks_.back())) - low) / (scaled(marks_.back()) - low);
    return bottom() - (bottom() - top()) * share;
  }

 private:
  GraphPanel(std::pair<double, double> place, std::vector<double> marks, bool isLogarithmic)
      : place_(place), marks_(std::move(marks)), isLogarithmic_(isLogarithmic) {}

  double scaled(double value) const { return isLogarithmic_ ? std::log(value) : value; }

  std::pair<double, double> place_;
  std::vector<double> marks_;
  bool isLogarithmic_;
};

} // namespace soran
