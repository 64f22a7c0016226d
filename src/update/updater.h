// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/endpoints.h"
#include "platform/net_inet.h"
#include "update/manifest.h"
#include "update/program_place.h"

#include <functional>

namespace soran {

/// What an update works on.
struct UpdateJob {
  QString home;          ///< the program's directory: database, lock, log
  QString endpointsFile; ///< the endpoints file; empty for endpoints.ini in the program's directory
  QString program;       ///< the program's file
  QByteArray publicKey;  ///< the key that must have signed the manifest
  QString system = thisSystem();
  int waitForEnd = 30'000; ///< milliseconds that the program is given to end
};

/// Replaces the program's files by those of the update endpoint. Every step is checked before the next one
/// begins, and nothing of the program is touched before all of the new one lies beside it.
class Updater {
 public:
  enum class Outcome {
    Updated,      ///< the new program is in its place
    Current,      ///< it was there already
    Failed,       ///< the former program is there, whole
    StillRunning, ///< the program did not end; nothing was done
  };

  /// `tell` gets each line for the user.
  Updater(UpdateJob job, std::function<void(const QString&)> tell);

  Outcome run();

 private:
  Outcome update();
  Manifest fetchManifest();
  QByteArray fetch(const QString& path, qint64 limit, const QString& what);
  void refuseOlder(const QString& version) const;
  void stageFiles(const Manifest& manifest, ProgramPlace& place);
  void resetStoredVersion() const;
  QString homePath(QStringView name) const { return job_.home + u'/' + name; }

  UpdateJob job_;
  std::function<void(const QString&)> tell_;
  Shutdown shutdown_;
  QString endpoint_;
};

/// The addresses that a program at this place with this directory asks.
Endpoints endpointsOf(const UpdateJob& job);

} // namespace soran
