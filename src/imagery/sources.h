// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <span>

/// The outside servers of charts and cameras: pages and pictures that the program shows but does not hold.
namespace soran {

/// Charts or cameras that one server can serve: where the endpoints file has a host under `key`, all of them
/// come from there, by the paths of the first edition.
struct ImagerySource {
  QStringView key;  ///< the key in the section [endpoints]
  QStringView name; ///< what it serves, as shown where it does not answer
  QStringView path; ///< where its pages lie, for those with one base
};

/// All sources: charts, the page of AIS Japan, then one for each camera ("camera_" and the item's name).
std::span<const ImagerySource> imagerySources() noexcept;

/// The source of a key, null where there is none.
const ImagerySource* findImagerySource(QStringView key) noexcept;

} // namespace soran
