// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "base/station_code.h"

#include <QString>
#include <QUrl>
#include <span>

namespace soran {

/// Who serves reports, and how it is asked.
struct ReportSource {
  enum class Form {
    NoaaStation, ///< a file of a station: a line with the time of writing, then the report
    RawLines,    ///< a report a line, of one station or of many, its kind perhaps ahead of it
  };
  QString name;
  Form form = Form::NoaaStation;
  QString metar; ///< address; {code} stands for a code, {codes} for several with a comma between them
  QString taf;
  int list = 100; ///< most stations of one request, where it takes several
  int pause = 60; ///< least seconds between two requests of the watch for one address

  bool operator==(const ReportSource&) const = default;

  const QString& addressForm(ReportKind kind) const { return kind == ReportKind::Metar ? metar : taf; }
  bool takesLists(ReportKind kind) const;
  /// The address for these codes; for one code where it takes no lists. A code that is not all letters is
  /// percent-encoded.
  QUrl address(ReportKind kind, std::span<const StationCode> codes) const;
};

} // namespace soran
