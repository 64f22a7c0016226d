// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch_job.h"

namespace soran {

/// The operation taf_at: what the METAR and the TAF of a station say for a time.
QJsonValue tafAt(BatchJob& job);

/// The operation board: the row that the board of the watch has for the reports of a station.
QJsonValue boardOf(BatchJob& job);

} // namespace soran
