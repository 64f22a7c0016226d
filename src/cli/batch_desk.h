// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch_job.h"

namespace soran {

/// The operation elements: a METAR or SPECI as plain values.
QJsonValue elementsOf(BatchJob& job);

/// The operation taf_at of a "text": what a TAF says of one time, as plain values.
QJsonValue plainTafAt(BatchJob& job);

/// The operation board of "reports": a row an airport with its state against plain limits, the worst first.
QJsonValue plainBoard(BatchJob& job);

} // namespace soran
