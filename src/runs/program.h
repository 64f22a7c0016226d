// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "platform/services.h"
#include "reports/dictionaries.h"
#include "reports/limits.h"
#include "runs/night_desk_state.h"
#include "runs/report_intake.h"
#include "runs/run_request.h"
#include "runs/source_health.h"
#include "runs/station_table.h"
#include "screen/console.h"
#include "store/tables.h"

#include <QDateTime>
#include <QHash>
#include <map>
#include <memory>

namespace soran {

/// Begins the text on panel 1 while there is a network.
inline constexpr QStringView panelConnected = u"ネットワーク接続確立";

/// What all parts of a program run share: the services, the database, the terminal, and the state of the
/// runs.
struct Program {
  explicit Program(Services given)
      : services(std::move(given)), console(services.clock, tables.settings()),
        baseUrl(services.endpoints.update), lastReports(services.path(u"last.mdb")),
        desk(services.path(u"shift.jsonl")) {}

  Services services;
  Tables tables;
  Console console;

  QString baseUrl;                            ///< base of the update endpoint, without trailing slash
  bool networkAvailable = false;              ///< last known state of the connection
  QString currentInput;                       ///< code list of the last run, with its prefix "SQ " or "JP "
  RunMemory runMemory;                        ///< what else RL and the watch need to run it again
  int userActs = 0;                           ///< keys and group starts so far: one holds announcements back
  QString inputHistory = QStringLiteral(" "); ///< words typed, blank-delimited, 200 characters at most

  StationTable stationTable;
  KnownReports knownReports;
  SourceHealth sourceHealth;
  std::map<QString, ServedBy> servedBy;      ///< by the code of each station of the last run
  QHash<QString, RecentReply> recentReplies; ///< by address
  LastReports lastReports;                   ///< what is known over runs
  int keptReports = 0;                       ///< count of the reports that were kept there
  NightDeskState desk;
  bool cycleChanged = false;   ///< the last comparison found a report that is not shown yet
  bool cycleAnnounces = false; ///< one of these is to be announced
  QString lastCycleTime;       ///< HH:MM, local, at which the last cycle ended
  bool lastProbeGood = true;   ///< the last probe of the network watch succeeded
  bool minimised = false;      ///< the main window is minimised
  int watchTicks = 0;          ///< seconds since the last pass or key
  int bufferLevel = 1;         ///< 11 minus the setting バッファ
  /// The beginning (UTC) of the hour that each cycle file fetched in this run is of. A 時差 that no zone has
  /// asks for hours that no day has.
  std::map<UtcHour, QDateTime> cycleFileHours;
  int cycleDecade = 25;        ///< tens digit of the minute of the last refresh of cycle files
  ZoneOffset systemZoneOffset; ///< machine's offset from UTC, taken at start
  QString currentPrinter;      ///< chosen last; empty before any choice

  Settings& settings() { return tables.settings(); }
  const SettingsRecord& record() { return tables.settings().record(); }

  /// The look-up tables of the dictionaries, made anew after an edit.
  const Dictionaries& dictionaries() {
    if (!dictionaries_ || dictionaryRevision_ != tables.revision()) {
      dictionaries_ = std::make_unique<Dictionaries>(tables.airportRows(), tables.abbreviationRows(),
                                                     tables.phraseRows(), services.stations());
      dictionaryRevision_ = tables.revision();
    }
    return *dictionaries_;
  }

  /// What is beyond a limit at an airport: that of its rows in 空港別制限, of those for all airports and of
  /// the settings.
  Limits limitsOf(const StationCode& code);

  /// The text on panel 1 while there is a network; it tells where the first source of reports is away.
  QString connectedText() const;

  /// The text on panel 2 that tells that the cycle stands still.
  void showAutoDecodeStopped() { console.setPanel(2, QStringLiteral("自動デコード停止")); }

 private:
  struct KnownLimits {
    std::optional<Runways> runways = {};
    QList<AirportLimits> rows = {};
    int revision = -1;
  };

  std::unique_ptr<Dictionaries> dictionaries_;
  KnownLimits limits_;
  int dictionaryRevision_ = 0;
};

} // namespace soran
