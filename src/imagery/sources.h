// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <span>

/// The outside servers of charts and cameras: pages and pictures that the program shows but does not hold.
namespace soran {

/// One server. Its address is that of the `key` in the endpoints file, else `host`.
struct ImagerySource {
  QStringView key;  ///< the key in the section [endpoints]
  QStringView name; ///< who serves it, as shown where it does not answer
  QStringView host; ///< built-in scheme and host without a trailing slash; empty where none is known
  QStringView path; ///< where its pages lie, for those with one base
  QStringView note; ///< what is known of it, as shown where it does not answer
};

/// All sources: charts, the page of AIS Japan, then one for each camera ("camera_" and the item's name).
std::span<const ImagerySource> imagerySources() noexcept;

/// The source of a key, null where there is none.
const ImagerySource* findImagerySource(QStringView key) noexcept;

} // namespace soran
