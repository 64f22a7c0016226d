// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/services.h"

namespace soran {

/// A world whose endpoint serves a module with its signature, and the services of runs in it: what a start of
/// the program and its updates need.
class Updating : public World {
 public:
  Updating() {
    for (const QString& name : {u"error.wav"_s, u"ring.wav"_s})
      server.setFile(u"/data/" + name, "sound");
    server.setFile(u"/data/update.exe.sig"_s, "signature");
    QDir().mkpath(home());
  }

  /// A database as the makers improved it: `change` works on the delivered tables.
  QByteArray database(const std::function<void(Tables&)>& change) const {
    const QString path = folder.filePath(u"made.mdb"_s);
    writeWhole(path, deliveredDatabase(), true);
    {
      Tables tables;
      tables.openAllTables(path);
      change(tables);
    }
    return contents(path);
  }

  void clearHome() const { folder.remove(home()); }
  QByteArray bytes(const QString& name) const { return contents(path(name)); }

  Services services() {
    Services all = run.services(waiting);
    all.demonstration = demonstration;
    return all;
  }

  /// The dialogues since the last call, each as its title, " | " and its text.
  QStringList dialogs() {
    QStringList list;
    for (const auto& dialog : run.desk.takeSeen().dialogs)
      list.append(dialog.title + u" | " + dialog.text);
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

  bool demonstration = false;
  Waiter waiting;
  FakeServices run{*this};
};

} // namespace soran
