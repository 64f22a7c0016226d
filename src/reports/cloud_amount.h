// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace soran {

/// How an amount of cloud (ICAO Annex 3: FEW, SCT, BKN, OVC) is worded. The words of a translation and those
/// of a tip differ; each has a table of its own.
struct CloudAmount {
  QStringView word;
  QStringView atHeight;      ///< behind the height
  QStringView unknownHeight; ///< in place of the height
};

} // namespace soran
