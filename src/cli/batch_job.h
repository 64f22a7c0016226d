// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/dictionaries.h"
#include "store/json_fields.h"
#include "store/rows.h"

namespace soran {

/// What every job has: the settings and the tables in force, and its own fields.
struct BatchJob {
  Fields fields;
  const SettingsRecord& settings;
  const QList<Airport>* airports;
  const Dictionaries* dictionaries;
  QList<AirportLimits> limits = {}; ///< 空港別制限 of the settings
};

/// An operation reads its fields, all of them, and gives its result. Throws InputError.
using BatchOperation = QJsonValue (*)(BatchJob& job);

/// The operation of a name, null where there is none.
BatchOperation batchOperation(const QString& name);

} // namespace soran
