// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace soran {

struct Program;

/// Keeps on the disk the reports that were taken since this was done last.
void keepLastReports(Program& program);

/// The latest reports of the station of this run of the program, as the screen shows them under its code;
/// empty where none is known.
QString knownReportText(Program& program, const QString& code);

/// The last known reports of the stations, each under a headline that tells how old the METAR is, or the TAF
/// where no METAR is known; a station of which nothing is known is told as not found.
QString lastKnownText(Program& program, const QStringList& codes);

} // namespace soran
