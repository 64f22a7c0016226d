// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCache>
#include <QDateTime>
#include <QUrl>
#include <chrono>
#include <deque>
#include <functional>
#include <map>

namespace soran {

/// What a server told of a body by which it can tell later whether that is still the same (RFC 9110, 8.8).
struct Validators {
  QByteArray tag;      ///< of ETag
  QByteArray modified; ///< of Last-Modified

  bool isEmpty() const { return tag.isEmpty() && modified.isEmpty(); }
};

/// A date as servers tell it (RFC 9110, 5.6.7: Tue, 24 Nov 2026 05:20:00 GMT), in UTC; invalid where it is
/// none.
QDateTime httpDate(const QByteArray& told);

/// How a program keeps from being a burden to servers: no more than so many requests a minute to a host,
/// none to one that asked to be left alone, and no body twice that did not change. This machine is spared the
/// first.
class Courtesy {
 public:
  using Time = std::chrono::steady_clock::time_point;
  static constexpr size_t mostAMinute = 100; ///< requests to one host

  explicit Courtesy(std::function<Time()> now = std::chrono::steady_clock::now) : now_(std::move(now)) {}

  /// From now on there is so much time between two requests to one host.
  void keepApart(std::chrono::milliseconds time) { apart_ = time; }

  /// Counts a request to the host of `url` where it may be sent now, and returns 0; otherwise the time after
  /// which to try again.
  std::chrono::milliseconds claim(const QUrl& url);

  /// The host asked for no request within the time that it told in `retryAfter` (RFC 9110, 10.2.3: seconds or
  /// a date), a minute where that tells nothing, half an hour at most.
  void leaveAlone(const QUrl& url, const QByteArray& retryAfter);
  bool isLeftAlone(const QUrl& url) const;

  struct Remembered {
    Validators validators;
    QByteArray body;
  };
  /// What came from this address last; null where nothing is kept.
  const Remembered* remembered(const QUrl& url) const { return remembered_.object(url); }
  /// Keeps a body by which it can be asked whether it changed, unless it is large.
  void remember(const QUrl& url, const Validators& validators, const QByteArray& body);
  void forget() { remembered_.clear(); }

 private:
  std::function<Time()> now_;
  std::chrono::milliseconds apart_{0};
  std::map<QString, std::deque<Time>> sent_;     // by host, within the last minute
  std::map<QString, Time> leftAloneUntil_;       // by host
  QCache<QUrl, Remembered> remembered_{8 << 20}; // bytes
};

} // namespace soran
