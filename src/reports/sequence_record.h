// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"

#include <QString>

namespace soran {

/// Appends a record and CR LF to the file, in UTF-8; makes the file where it does not exist. False where it
/// failed: the record is then lost and nothing else.
bool appendSequenceRecord(const QString& path, const QString& record);

/// The records of a station in the text of the record file: for each heading line (one that holds the code
/// and METAR or SPECI) not yet in the block, a line end and the heading, then every following line, each
/// behind a line end, up to and including the first empty one. Leading blanks of a line and all from a comma
/// on do not count. Empty where there is none.
QString sequenceRecordBlock(QStringView text, const StationCode& code);

} // namespace soran
