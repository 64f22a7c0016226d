// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/plain_file.h"
#include "platform/image_table.h"
#include "platform/report_source.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <vector>

namespace soran {

/// The addresses that the program asks. Each is http, https or a folder (file:///...).
struct Endpoints {
  QString update; ///< base of the update endpoint, without trailing slash
  QString metar;  ///< METAR station files, with trailing slash
  QString taf;    ///< TAF station files, with trailing slash
  QString cycles; ///< hourly METAR cycle files, with trailing slash
  QString home;   ///< home page and help, without trailing slash
  QString sigmet; ///< SIGMETs of all regions as text; empty where none is known
  QString probe;  ///< what the network watch asks; empty for the version file of `update`
  /// The sources of METAR and TAF, in the order in which they are asked. Where there are none, the station
  /// files below `metar` and `taf` are the only one.
  std::vector<ReportSource> sources = {};
  QString shared =
      {};        ///< the folder in which the desks of an office tell each other; empty where they do not
  int ahead = 0; ///< stations whose reports are on the way ahead of their turn, 0 to 8
  bool signedUpdates = false;     ///< asks for a signature even from a folder or from loopback
  QHash<QString, QString> others; ///< hosts of charts and cameras that go before `images`, by key
  LateImageTable images = {};     ///< where each chart and camera is had
  /// What the files say that is not taken, in words for the screen: "[source.2] HAS NO ADDRESS FOR TAF".
  QStringList remarks = {};

  /// At least one source.
  std::vector<ReportSource> reportSources() const;

  /// The addresses built into the program. `delivered` is the address of what comes with it: the update
  /// endpoint is its folder update, the home page its own folder.
  static Endpoints builtIn(const QString& delivered);

  /// These addresses, with those keys of the section [endpoints] of an INI file that it has, and with its
  /// sections [source.1], [source.2], ... for the sources; where it has `metar` or `taf` and no such section,
  /// these are the only source. A value that
  /// begins with "./" is a folder beside the INI file. A file that does not exist or cannot be read changes
  /// nothing, and `why` tells why.
  Endpoints overriddenBy(const QString& iniFile, FileFault* why = nullptr) const;
};

/// The host of an address is this machine by its name or number.
bool isLoopback(const QUrl& url);

} // namespace soran
