// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imagery/cameras.h"
#include "imagery/chart_catalogue.h"
#include "platform/endpoints.h"

namespace soran {

/// A row of the table, or in its place one by the host that the endpoints file has for `source`, whose `path`
/// is of that `kind`. A host that is there and empty, and an item that no row tells of, give a row with that
/// reason.
ImageRow imageRow(const Endpoints& endpoints, const QString& menu, int index, const QString& source,
                  const QString& path, ImageRow::Kind kind);

/// The same for a chart at local time `now`, `timeOffset` being the setting 時差; for a camera; and for a
/// page that a window of its own or the system's browser shows, by the key of its source.
ImageRow chartRow(const Endpoints& endpoints, const ChartItem& item, const QDateTime& now,
                  QStringView timeOffset);
ImageRow cameraRow(const Endpoints& endpoints, const Camera& camera);
ImageRow yahooRow(const Endpoints& endpoints);
ImageRow aisRow(const Endpoints& endpoints);

struct ItemRow {
  QString key; ///< of the item
  ImageRow row;
};

/// The row of every chart, camera and page, then those of the table that no item has.
std::vector<ItemRow> itemRows(const Endpoints& endpoints, const QDateTime& now, QStringView timeOffset);

} // namespace soran
