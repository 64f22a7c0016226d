// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace soran {

/// A report of the day `issued` (UTC) as it would read `days` days later: every group that holds a day of
/// the month is moved, hours and minutes stay. These are the time of issue (ddhhmmZ) and, in a forecast (a
/// report that begins with "TAF"), periods (ddhh/ddhh), temperatures (TX31/ddhhZ), FMddhhmm and the remarks
/// on amendments (AFT ddhh, NEXT ddhh). The trend of a METAR holds hours and minutes only (FM0220, TL0300)
/// and stays as it is.
QString redated(const QString& report, QDate issued, qint64 days);

/// An observation issued at `issued` as it would read if it were issued at `anew`: its time of issue is the
/// new one, and the times of its trend are moved by as many hours.
QString reissued(const QString& observation, const QDateTime& issued, const QDateTime& anew);

} // namespace soran
