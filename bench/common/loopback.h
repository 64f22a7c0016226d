// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/endpoint_server.h"

#include <QString>

namespace soran::bench {

/// An endpoint on loopback that holds what a start of the program asks for, the update module on demand only;
/// reports are the caller's to add.
class Loopback {
 public:
  explicit Loopback(bool withModule = false);

  /// Writes the file that --endpoints takes.
  void writeEndpoints(const QString& path) const;

  EndpointServer server;
};

inline constexpr QStringView metarFolder = u"/pub/data/observations/metar/stations/";
inline constexpr QStringView tafFolder = u"/pub/data/forecasts/taf/stations/";
inline constexpr QStringView cycleFolder = u"/pub/data/observations/metar/cycles/";

/// What a running process has used so far.
struct ProcessFigures {
  double cpuSeconds = 0;
  double memory = 0; ///< resident, MB of 1024 kB
  double peak = 0;   ///< the most that was resident
};
ProcessFigures figuresOf(qint64 pid);

} // namespace soran::bench
