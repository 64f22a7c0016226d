// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <optional>

namespace soran {

/// What came as the file of a station, judged before anything of it is used.
struct StationText {
  enum class Kind {
    Report,    ///< one of the station that was asked
    Page,      ///< it begins with "<": the server has no such file
    OfAnother, ///< a report of the station `other`
    NoReport,  ///< anything else
  };
  Kind kind = Kind::NoReport;
  /// A report from its first character on that is no blank, cleaned and ended by a line end; the page as it
  /// came; else empty.
  QString text = {};
  QString other = {};
  /// When the file was written; invalid where it does not say.
  QDateTime time = {};
  /// What the source itself says of a METAR: true for SPECI; nothing where it does not say.
  std::optional<bool> isSpecial = {};

  bool isReport() const { return kind == Kind::Report; }
};

/// The first line of a station file, "2026/11/24 05:00" in UTC; invalid where the text has none.
QDateTime timeOfWriting(QStringView text);

/// Judges the body of an answer. It is a report of the station where it holds the code as a word and, where a
/// code stands ahead of a time of observation or issue (DDHHMMZ; WMO No. 306, FM 15 and FM 51), the first
/// such code is that of the station. The case of `asked` does not count.
StationText readStationText(const StationCode& asked, QStringView body);

} // namespace soran
