// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/standard_stream.h"
#include "start/launch.h"

#include <functional>
#include <optional>

namespace soran {

/// What one address of the tables answered.
struct CheckedSource {
  QString name = {};
  QString address = {};
  int status = 0; ///< of HTTP, 0 where there was none
  QString kind =
      {}; ///< what the body is: report, raw lines, image png, pdf, html page, json, empty, other ...
  std::optional<qint64> age = {}; ///< minutes; nothing where it is not told
  QString verdict = {};

  static constexpr QStringView good = u"OK";
  bool isGood() const { return verdict == good; }
};

/// Asks every address of the endpoints once, one after the other: the sources of reports and SIGMETs, the
/// hourly cycles, the update endpoint, then the rows of the table of charts and cameras, of which one that
/// has nothing to ask is passed over. `told` gets each as soon as it is known, and ends the check with false.
void checkSources(const Endpoints& endpoints, Inet& inet, const QDateTime& now,
                  const std::function<bool(const CheckedSource&)>& told);

/// The same as a table, or as a JSON object a line. The exit status: 0 where all are well, 1 where one is not
/// or the program could not start, 4 where the output is lost.
int checkSourcesCall(const LaunchOptions& options, DeliveredFile delivered, StandardStream& output,
                     StandardStream& errors);

} // namespace soran
