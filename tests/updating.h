// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/files.h"
#include "cli/headless.h"
#include "delivered.h"
#include "platform/endpoint_server.h"
#include "platform/net_inet.h"
#include "runs/program.h"
#include "support/own_folder.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <memory>

namespace soran {

/// A program's directory, an update endpoint, and a desk without a window: what a start of the program and
/// its updates need.
class Updating {
 public:
  Updating() {
    server.start();
    endpoints.update = server.baseAddress();
    server.setFile(QStringLiteral("/data/soran.mdb"), delivered());
    for (const QString& name : {QStringLiteral("error.wav"), QStringLiteral("ring.wav")})
      server.setFile(QStringLiteral("/data/") + name, "sound");
    server.setFile(QStringLiteral("/data/update.exe"), "module");
    server.setFile(QStringLiteral("/data/update.exe.sig"), "signature");
    setVersions("4.31\n1.00\n1.00\n");
    QDir().mkpath(home());
  }

  void setVersions(const QByteArray& text) { server.setFile(QStringLiteral("/data/version.dat"), text); }

  static QByteArray delivered() { return delivered::file(QStringLiteral("update/data/soran.mdb")); }

  /// A database as the makers improved it: `change` works on the delivered tables.
  QByteArray database(const std::function<void(Tables&)>& change) const {
    const QString path = folder_.filePath(QStringLiteral("made.mdb"));
    writeWhole(path, delivered(), true);
    {
      Tables tables;
      tables.openAllTables(path);
      change(tables);
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  void clearHome() const { folder_.remove(home()); }
  QString home() const { return folder_.filePath(QStringLiteral("home")); }
  QString path(const QString& name) const { return home() + u'/' + name; }
  QByteArray bytes(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  Services services() {
    return {.clock = clock,
            .timers = timers,
            .inet = inet,
            .inet2 = inet,
            .dialogs = desk,
            .forms = desk,
            .sounds = desk,
            .printers = desk,
            .pages = desk,
            .shutdown = shutdown,
            .waiting = waiting,
            .endpoints = endpoints,
            .demonstration = demonstration,
            .directory = home(),
            .deliveredDatabase = [] { return delivered(); }};
  }

  /// The dialogues since the last call, each as its title, " | " and its text.
  QStringList dialogs() {
    QStringList list;
    for (const QJsonValue& dialog : desk.takeSeen().dialogs)
      list.append(dialog[QStringLiteral("title")].toString() + QStringLiteral(" | ") +
                  dialog[QStringLiteral("text")].toString());
    return list;
  }

  /// A wait for the user, who does what `onWait` does.
  struct Waiter final : Waiting {
    void until(const std::function<bool()>& done) override {
      ++waits;
      while (!done())
        onWait();
    }
    int waits = 0;
    std::function<void()> onWait = [] {};
  };

  EndpointServer server;
  bool demonstration = false;
  Endpoints endpoints;
  Headless desk;
  Waiter waiting;
  SetClock clock{QDateTime::fromString(QStringLiteral("2026-11-24T14:20:00+09:00"), Qt::ISODate)};
  SteppedTimers timers;
  Shutdown shutdown;
  NetInet inet{makeNetwork(), shutdown};

 private:
  OwnFolder folder_;
};

} // namespace soran
