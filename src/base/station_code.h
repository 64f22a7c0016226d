// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

namespace soran {

/// The location indicator of a station (ICAO Doc 7910): four characters of a list, whatever stands there.
class StationCode {
 public:
  StationCode() = default;
  explicit StationCode(QString text) : text_(std::move(text)) {}

  const QString& text() const { return text_; }
  bool operator==(const StationCode&) const = default;

 private:
  QString text_;
};

/// The codes of a list, cut at positions 1, 6, 11, ... whatever stands there.
std::vector<StationCode> codesOf(QStringView codeList);

} // namespace soran
