// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The endpoints file of a user.
#include "platform/endpoints.h"

#include "support/own_folder.h"
#include "targets.h"

namespace soran::fuzz {

void endpoints(QByteArrayView input) {
  // Each file has a name of its own: settings files are kept in memory by their path.
  static const OwnFolder directory;
  static int count = 0;
  const QString path = directory.filePath(QString::number(++count));
  writeWhole(path, input.toByteArray());

  const Endpoints builtIn = Endpoints::builtIn(QStringLiteral("qrc:/delivered"));
  const Endpoints read = builtIn.overriddenBy(path);
  if (!input.contains('['))
    require(read.update == builtIn.update && read.metar == builtIn.metar && read.taf == builtIn.taf &&
                read.cycles == builtIn.cycles && read.home == builtIn.home && read.probe.isEmpty() &&
                !read.signedUpdates && read.others.isEmpty(),
            "a file without a section changes nothing");
  for (const QString& address : {read.update, read.metar, read.taf, read.cycles, read.home, read.probe}) {
    require(!address.startsWith(u"./"), "a folder beside the file is told from the root on");
    read.reportSources().front().address(ReportKind::Metar, std::array{StationCode(QStringLiteral("RJTT"))});
  }
  QFile file(path);
  require(file.open(QIODevice::ReadOnly) && file.readAll() == input, "reading writes nothing");
  file.remove();
}

} // namespace soran::fuzz
