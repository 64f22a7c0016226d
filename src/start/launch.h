// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/demo_data.h"
#include "platform/endpoint.h"
#include "platform/net_inet.h"
#include "platform/services.h"

#include <QStringList>
#include <memory>
#include <optional>

namespace soran {

/// The options that both programs take.
struct LaunchOptions {
  QString home;         ///< the program's directory; empty for the user's own
  QString endpoints;    ///< the endpoints file; empty for endpoints.ini in the program's directory
  QString shared = {};  ///< the folder of the desks of an office; empty for that of the endpoints file
  bool runs = false;    ///< the states of a session tell the coloured runs
  bool json = false;    ///< what is told comes as JSON
  bool board = false;   ///< the window shows the board of the watch from its start
  QString list = {};    ///< of a watch: the codes, with a blank between them; empty for the automatic list
  QString group = {};   ///< of a watch: the group whose airports it watches
  QString exec = {};    ///< of a watch: a program that gets each event
  QString webhook = {}; ///< of a watch: an address that gets each event
  bool demo = false;    ///< the embedded endpoint serves everything
  bool help = false;
  bool version = false;
  std::optional<QDateTime> now; ///< the instant at which the clock stands
  QStringList rest;             ///< what is left, in order
  QString error;                ///< what is wrong with the arguments; empty where nothing is
};

/// Reads arguments, the program's name left out. Options stand anywhere; what is behind "--" is none.
LaunchOptions readOptions(const QStringList& arguments);

/// The text of --help about these options.
QString optionsHelp();

/// The program's directory that the options name, absolute and without trailing slash.
QString programDirectory(const LaunchOptions& options);

/// A date and time with its zone as ISO 8601, such as 2026-11-24T14:20:00+09:00; nothing where it is none.
std::optional<QDateTime> readInstant(const QString& text);

/// Files compiled into the program, by their path: "update/data/soran.mdb", "demo/day.tsv" ...
using DeliveredFile = std::function<QByteArray(const QString&)>;

/// The world of one program run: clock, network, endpoints, and the embedded endpoint of a demonstration.
class Launch {
 public:
  Launch(const LaunchOptions& options, Timers& timers, DeliveredFile delivered);
  ~Launch();

  Services services(const FrontEnd& frontEnd);

  Shutdown& shutdown() { return shutdown_; }
  Clock& clock() { return *clock_; }
  /// The clock that is moved by hand, null where the real one runs.
  SetClock* setClock() { return setClock_; }
  bool demo() const { return server_ != nullptr; }
  const Endpoints& endpoints() const { return endpoints_; }
  /// Why the program must not start, in words; empty where it may.
  const QString& fault() const { return fault_; }
  const QString& directory() const { return directory_; }
  /// The endpoints file that the options name, empty where they name none.
  const QString& endpointsFile() const { return endpointsFile_; }

  /// Called with the address of every request.
  void onRequest(const std::function<void(const QUrl&)>& hook);

 private:
  void startDemo(const DeliveredFile& delivered);
  void takeEndpoints(const QString& file);
  void takeImages(const QString& file);

  Shutdown shutdown_;
  Timers& timers_;
  DeliveredFile delivered_;
  QString directory_;
  QString endpointsFile_;
  QString fault_; // why the program must not start
  std::unique_ptr<Clock> clock_;
  SetClock* setClock_ = nullptr;
  Endpoints endpoints_;
  std::unique_ptr<Endpoint> server_;
  std::unique_ptr<DemoData> demoData_;
  NetInet inet_;
  NetInet inet2_;
};

} // namespace soran
