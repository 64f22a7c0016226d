// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/endpoints.h"

#include "base/text.h"

#include <QFileInfo>
#include <QSettings>
#include <algorithm>

namespace soran {

Endpoints Endpoints::builtIn(const QString& installed) {
  const QString folder = QUrl::fromLocalFile(installed).toString(QUrl::StripTrailingSlash);
  const QString reports = QStringLiteral("https://tgftp.nws.noaa.gov/pub/data/");
  Endpoints e;
  e.update = folder;
  e.home = folder;
  e.metar = reports + u"observations/metar/stations/";
  e.taf = reports + u"forecasts/taf/stations/";
  e.cycles = reports + u"observations/metar/cycles/";
  return e;
}

Endpoints Endpoints::overriddenBy(const QString& iniFile) const {
  Endpoints e = *this;
  if (!QFileInfo(iniFile).isReadable())
    return e;
  QSettings ini(iniFile, QSettings::IniFormat);
  ini.beginGroup(QStringLiteral("endpoints"));
  const QHash<QString, QString*> known = {
      {QStringLiteral("update"), &e.update}, {QStringLiteral("metar"), &e.metar},
      {QStringLiteral("taf"), &e.taf},       {QStringLiteral("cycles"), &e.cycles},
      {QStringLiteral("home"), &e.home},     {QStringLiteral("probe"), &e.probe}};
  const QStringList keys = ini.childKeys();
  for (const QString& name : keys) {
    // An address with a comma arrives as a list.
    const QString value = ini.value(name).toStringList().join(u',');
    if (QString* const* field = known.constFind(name) == known.cend() ? nullptr : &*known.constFind(name))
      **field = value;
    else if (name == u"signed")
      e.signedUpdates = ini.value(name).toBool();
    else
      e.others.insert(name, value);
  }
  return e;
}

QString Endpoints::probeAddress() const {
  return probe.isEmpty() ? update + u"/data/version.dat" : probe;
}

QUrl stationFile(const QString& base, QStringView code) {
  const QString name = std::all_of(code.begin(), code.end(), isAsciiLetter)
                           ? code.toString()
                           : QString::fromLatin1(QUrl::toPercentEncoding(code.toString()));
  return QUrl(base + name + u".TXT");
}

} // namespace soran
