// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/dialogs.h"
#include "fakes/forms.h"
#include "fakes/pages.h"
#include "fakes/printers.h"
#include "fakes/sounds.h"
#include "fakes/world.h"
#include "platform/net_inet.h"
#include "platform/services.h"

#include <memory>

namespace soran {

/// Everything that would be seen or heard.
struct Desk {
  struct Seen {
    QList<FakeDialogs::Said> dialogs;
    QStringList forms;
    QStringList sounds;
    QList<PrintJob> prints;
    QStringList pages;
  };
  /// What came since the last call, in order.
  Seen takeSeen() {
    return {std::exchange(dialogs.seen, {}), std::exchange(forms.seen, {}), std::exchange(sounds.seen, {}),
            std::exchange(printers.seen, {}), std::exchange(pages.seen, {})};
  }

  FakeDialogs dialogs;
  FakeForms forms;
  FakeSounds sounds;
  FakePrinters printers;
  FakePages pages;
};

/// The services of one run of the program in a world: its own desk, timers that are moved by hand, and the
/// real client.
class FakeServices {
 public:
  explicit FakeServices(World& given) : world(given) {
    for (NetInet* client : {&inet, &inet2})
      client->onRequest([this](const QUrl& url) { noteRequest(url.path()); });
  }

  Services services(Waiting& waits) {
    const FrontEnd seen{desk.dialogs, desk.forms, desk.sounds, desk.printers, desk.pages, waits};
    Services all{seen, world.clock, timers, inet, inet2, shutdown, world.endpoints};
    all.directory = world.home();
    all.deliveredDatabase = World::deliveredDatabase;
    return all;
  }
  Services services() { return services(waiting); }

  /// Seconds pass, each with its ticks, until the program closes.
  void tick(int seconds = 1) {
    for (int i = 0; i < seconds && !shutdown.requested(); ++i) {
      world.clock.advance(1);
      timers.step();
    }
  }
  /// The requests since the last call: "M/RJTT", "T/RJTT", "C/05", and other paths as they are.
  QStringList asked() { return std::exchange(asked_, {}); }

  World& world;
  Shutdown shutdown;
  SteppedTimers timers;
  std::shared_ptr<Network> network = makeNetwork();
  NetInet inet{network, shutdown};
  NetInet inet2{network, shutdown};
  Desk desk;
  LoopWaiting waiting{shutdown};
  /// Called with each request as `asked` names it, before it is sent.
  std::function<void(const QString&)> onRequest = [](const QString&) {};

 private:
  void noteRequest(const QString& path) {
    QString name = path.endsWith(u".TXT") ? path.chopped(4) : path;
    name.replace(stationsPath, u"M/"_s).replace(forecastsPath, u"T/"_s).replace(cyclesPath, u"C/"_s);
    if (name.startsWith(u"C/"))
      name.chop(1); // the zone
    if (name.endsWith(u".sig"))
      return;
    asked_.append(name);
    const auto hook = onRequest; // it may set another in its place
    hook(name);
  }

  QStringList asked_;
};

} // namespace soran
