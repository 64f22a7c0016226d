// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/launch.h"

#include "base/plain_file.h"
#include "platform/http_parts.h"
#include "start/demo_pictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QScopeGuard>
#include <QStandardPaths>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<Clock> makeClock(const LaunchOptions& options) {
  if (options.now)
    return std::make_unique<SetClock>(*options.now);
  return std::make_unique<SystemClock>();
}

QString userDirectory() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/soran";
}

/// The files installed with the program lie beside the folder of its executables.
QString installed(QStringView name) {
  return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share/soran/" + name);
}

/// Where the value of an option that is a text goes; null where it is none of them.
QString* textOption(LaunchOptions& options, const QString& name) {
  const std::pair<QStringView, QString*> texts[] = {{u"--list", &options.list},
                                                    {u"--group", &options.group},
                                                    {u"--exec", &options.exec},
                                                    {u"--webhook", &options.webhook},
                                                    {u"--shared", &options.shared}};
  const auto found = std::ranges::find(texts, QStringView(name), &std::pair<QStringView, QString*>::first);
  return found == std::end(texts) ? nullptr : found->second;
}

} // namespace

QString programDirectory(const LaunchOptions& options) {
  return QDir::cleanPath(
      QDir::current().absoluteFilePath(options.home.isEmpty() ? userDirectory() : options.home));
}

std::optional<QDateTime> readInstant(const QString& text) {
  const QDateTime instant = QDateTime::fromString(text, Qt::ISODate);
  if (!instant.isValid() || instant.timeSpec() == Qt::LocalTime)
    return std::nullopt;
  return instant.toOffsetFromUtc(instant.offsetFromUtc());
}

LaunchOptions readOptions(const QStringList& arguments) {
  LaunchOptions options;
  qsizetype i = 0;
  const auto value = [&](const QString& name) {
    if (i + 1 < arguments.size())
      return arguments[++i];
    options.error = name + u" needs a value";
    return QString();
  };
  for (; i < arguments.size() && options.error.isEmpty(); ++i) {
    const QString& argument = arguments[i];
    if (argument == u"--home") {
      options.home = value(argument);
    } else if (argument == u"--endpoints") {
      options.endpoints = value(argument);
      // A misspelt name must not send the program to the built-in hosts.
      const FileFault fault = readPlainFile(options.endpoints, largestSettingsFile, Links::Followed).fault;
      if (options.error.isEmpty() && fault != FileFault::None)
        options.error =
            u"--endpoints: cannot read " + options.endpoints + u": " + faultLine(fault, largestSettingsFile);
    } else if (argument == u"--now") {
      const QString text = value(argument);
      options.now = readInstant(text);
      if (options.error.isEmpty() && !options.now)
        options.error = u"--now needs a date and time with its zone, such as 2026-11-24T14:20:00+09:00"_s;
    } else if (argument == u"--demo") {
      options.demo = true;
    } else if (argument == u"--runs") {
      options.runs = true;
    } else if (QString* text = textOption(options, argument)) {
      *text = value(argument);
    } else if (argument == u"--board") {
      options.board = true;
    } else if (argument == u"--json") {
      options.json = true;
    } else if (argument == u"--help") {
      options.help = true;
    } else if (argument == u"--version") {
      options.version = true;
    } else if (argument == u"--") {
      options.rest += arguments.mid(i + 1);
      break;
    } else if (argument.startsWith(u"--")) {
      options.error = u"unknown option " + argument;
    } else {
      options.rest.append(argument);
    }
  }
  return options;
}

QString optionsHelp() {
  return u"  --home DIR        the program's directory: database, data/, sound/ (made if it does not exist)\n"
         "  --endpoints FILE  the endpoints file (else endpoints.ini in the program's directory)\n"
         "  --shared DIR      a folder in which the desks of an office tell each other what was "
         "acknowledged\n"
         "  --demo            the embedded endpoint serves everything: demonstration data, no weather\n"
         "  --now ISO-8601    the clock stands at this instant, such as 2026-11-24T14:20:00+09:00\n"
         "  --help            this text\n"
         "  --version         the version\n"_s;
}

Launch::Launch(const LaunchOptions& options, Timers& timers, DeliveredFile delivered)
    : timers_(timers), delivered_(std::move(delivered)), clock_(makeClock(options)),
      inet_(makeNetwork(), shutdown_), inet2_(makeNetwork(), shutdown_) {
  directory_ = programDirectory(options);
  endpointsFile_ = options.endpoints;
  setClock_ = options.now ? static_cast<SetClock*>(clock_.get()) : nullptr;
  endpoints_ = Endpoints::builtIn(u"qrc:/delivered"_s);
  endpoints_.images.overrideBy(
      [delivered = delivered_] { return readImageTable(delivered(u"imagery.ini"_s), u"imagery.ini"_s); });
  // What it names goes before what the files name.
  const auto share = qScopeGuard([&] {
    if (!options.shared.isEmpty())
      endpoints_.shared = QDir::current().absoluteFilePath(options.shared);
  });
  if (options.demo) {
    startDemo(delivered_);
    return;
  }
  takeEndpoints(installed(u"endpoints.ini"));
  takeImages(installed(u"imagery.ini"));
  takeImages(directory_ + u"/imagery.ini");
  takeEndpoints(options.endpoints.isEmpty() ? directory_ + u"/endpoints.ini" : options.endpoints);
}

Launch::~Launch() = default;

void Launch::takeEndpoints(const QString& file) {
  FileFault fault = FileFault::None;
  endpoints_ = endpoints_.overriddenBy(file, &fault);
  // One that is there says whom to ask. Without it the program would ask others.
  if (fault != FileFault::None && fault != FileFault::Missing)
    fault_ = QDir::toNativeSeparators(file) + u": " + faultText(fault, largestSettingsFile);
}

void Launch::takeImages(const QString& file) {
  const FileBytes read = readPlainFile(file, largestSettingsFile, Links::Followed);
  if (read.ok())
    endpoints_.images.overrideBy(
        [bytes = read.bytes, name = QDir::toNativeSeparators(file)] { return readImageTable(bytes, name); });
  else if (read.fault != FileFault::Missing)
    fault_ = QDir::toNativeSeparators(file) + u": " + faultText(read.fault, largestSettingsFile);
}

void Launch::startDemo(const DeliveredFile& delivered) {
  HttpParts* http = httpParts();
  server_ = http ? http->makeEndpoint() : nullptr;
  if (!server_ || !server_->start()) {
    fault_ = u"デモの配信サーバーを開始できません (soran-http)　　"_s;
    return;
  }
  demoData_ = std::make_unique<DemoData>(delivered(u"demo/day.tsv"_s), *clock_);
  demoData_->serveOn(*server_);
  for (const QString& name : {u"version.dat"_s, u"soran.mdb"_s, u"error.wav"_s, u"ring.wav"_s})
    server_->setFile(u"/data/" + name, delivered(u"update/data/" + name));
  const auto servePage = [&](const QString& path, const QString& name, const QByteArray& type) {
    server_->setAnswer(path, {.body = delivered(name), .contentType = type});
  };
  servePage(u"/"_s, u"index.html"_s, "text/html");
  servePage(u"/help/help.html"_s, u"help/help.html"_s, "text/html");
  servePage(u"/help/help.css"_s, u"help/help.css"_s, "text/css");
  for (const QString& picture : {u"board.png"_s, u"graph.png"_s, u"map.png"_s})
    servePage(u"/help/" + picture, u"help/" + picture, "image/png");
  servePage(u"/index2.htm"_s, u"help/index2.htm"_s, "text/html");
  const QString base = server_->baseAddress();
  const QString reports = base + u"/pub/data/observations/metar/";
  endpoints_.update = base;
  endpoints_.home = base;
  endpoints_.sources.clear();
  endpoints_.sigmet = base + u"/api/data/isigmet?format=raw";
  endpoints_.metar = reports + u"stations/";
  endpoints_.cycles = reports + u"cycles/";
  endpoints_.taf = base + u"/pub/data/forecasts/taf/stations/";
  serveDemoPictures(*server_, *clock_, delivered_);
  endpoints_.images = demoTable(*endpoints_.images, base);
}

Services Launch::services(const FrontEnd& frontEnd) {
  Services services{frontEnd, *clock_, timers_, inet_, inet2_, shutdown_, endpoints_};
  services.demonstration = demo();
  services.directory = directory_;
  services.fault = fault_;
  services.stations = [this] { return delivered_(u"stations.tsv"_s); };
  services.positions = [this] { return delivered_(u"positions.tsv"_s); };
  services.coast = [this] { return delivered_(u"coast.bin"_s); };
  services.runways = [this] { return delivered_(u"runways.tsv"_s); };
  services.deliveredDatabase = [this] { return delivered_(u"update/data/soran.mdb"_s); };
  return services;
}

void Launch::onRequest(const std::function<void(const QUrl&)>& hook) {
  inet_.onRequest(hook);
  inet2_.onRequest(hook);
}

} // namespace soran
