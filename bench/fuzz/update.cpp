// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small texts of an update endpoint: the same bytes as version.dat and as server.dat.
#include "start/opening.h"
#include "targets.h"
#include "update/program_update.h"

#include <cmath>

namespace soran::fuzz {

void update(QByteArrayView input) {
  const QString text = textOf(input);
  const EndpointVersions versions = readVersions(text);
  for (const double version : {versions.program, double(versions.module), double(versions.database)}) {
    require(!std::isnan(version), "a version can be compared");
    require(!versionText(version).isEmpty(), "a version can be shown");
  }
  if (const std::optional<QString> address = serverAddress(text)) {
    const QUrl base(*address);
    const QUrl file(*address + u"/data/version.dat");
    require(text.contains(*address) && !address->endsWith(u'/'), "an address is taken as it stands");
    require(base.isLocalFile() || !base.host().isEmpty(), "an address has a host or is a folder");
    require(file.isValid() && file.scheme() == base.scheme() && file.host() == base.host() &&
                file.path() == base.path() + u"/data/version.dat",
            "files lie below the address");
  }
}

} // namespace soran::fuzz
