// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/courtesy.h"

#include "base/utc.h"
#include "platform/endpoints.h"

#include <QLocale>
#include <algorithm>

namespace soran {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

QDateTime httpDate(const QByteArray& told) {
  const QString text = QString::fromLatin1(told).trimmed();
  const QDate day = QLocale::c().toDate(text.left(16), u"ddd, dd MMM yyyy"_s);
  const QTime time = QTime::fromString(text.mid(17, 8), u"HH:mm:ss"_s);
  // Neither is of the own zone, whose clocks jump at hours that are good ones in UTC.
  return day.isValid() && time.isValid() && text.endsWith(u" GMT") ? inUtc(day, time) : QDateTime();
}

std::chrono::milliseconds Courtesy::claim(const QUrl& url) {
  if (isLoopback(url))
    return 0ms;
  const Time now = now_();
  std::deque<Time>& sent = sent_[url.host()];
  while (!sent.empty() && now - sent.front() >= 1min)
    sent.pop_front();
  if (sent.size() >= mostAMinute)
    return std::chrono::ceil<std::chrono::milliseconds>(sent.front() + 1min - now);
  if (!sent.empty() && now < sent.back() + apart_)
    return std::chrono::ceil<std::chrono::milliseconds>(sent.back() + apart_ - now);
  sent.push_back(now);
  return 0ms;
}

void Courtesy::leaveAlone(const QUrl& url, const QByteArray& retryAfter) {
  bool isNumber = false;
  qint64 seconds = retryAfter.toLongLong(&isNumber);
  if (!isNumber) {
    const QDateTime date = httpDate(retryAfter);
    seconds = date.isValid() ? QDateTime::currentDateTimeUtc().secsTo(date) : 60;
  }
  leftAloneUntil_[url.host()] =
      now_() + std::clamp(std::chrono::seconds(seconds), 1s, std::chrono::seconds(30min));
}

bool Courtesy::isLeftAlone(const QUrl& url) const {
  const auto found = leftAloneUntil_.find(url.host());
  return found != leftAloneUntil_.end() && now_() < found->second;
}

void Courtesy::remember(const QUrl& url, const Validators& validators, const QByteArray& body) {
  constexpr qsizetype largest = 256 << 10;
  if (validators.isEmpty() || body.size() > largest)
    remembered_.remove(url);
  else
    remembered_.insert(url, std::make_unique<Remembered>(Remembered{validators, body}).release(),
                       body.size() + 1);
}

} // namespace soran
