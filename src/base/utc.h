// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QTimeZone>

namespace soran {

/// The instant at which `date` and `time` are read in UTC. From Qt 6.5 on a zone tells so; before, a time
/// that is in a zone was another kind of time than one in UTC.
inline QDateTime inUtc(QDate date, QTime time) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
  return {date, time, QTimeZone::UTC};
#else
  return {date, time, Qt::UTC};
#endif
}

/// The instant as "2026-11-24T05:20:00Z".
inline QString utcText(const QDateTime& time) {
  return time.toUTC().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) + u'Z';
}

} // namespace soran
