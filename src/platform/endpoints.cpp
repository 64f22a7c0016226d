// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/endpoints.h"

#include "base/plain_file.h"
#include "base/text.h"

#include <QDir>
#include <QFileInfo>
#include <QHostAddress>
#include <QSettings>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

QString addressIn(const QString& iniFile, const QString& value) {
  if (!value.startsWith(u"./"))
    return value;
  return QUrl::fromLocalFile(QDir::cleanPath(QFileInfo(iniFile).absolutePath() + u'/' + value))
      .toString(QUrl::FullyEncoded);
}

int aheadOf(const QString& value) {
  constexpr double most = 8;
  const double number = value.toDouble(); // 0 where it is none
  return std::isnan(number) ? 0 : int(std::clamp(number, 0.0, most));
}

} // namespace

Endpoints Endpoints::builtIn(const QString& delivered) {
  const QString reports = u"https://tgftp.nws.noaa.gov/pub/data/"_s;
  Endpoints e;
  e.update = delivered + u"/update";
  e.home = delivered;
  e.metar = reports + u"observations/metar/stations/"_s;
  e.taf = reports + u"forecasts/taf/stations/"_s;
  e.cycles = reports + u"observations/metar/cycles/"_s;
  return e;
}

Endpoints Endpoints::overriddenBy(const QString& iniFile, FileFault* why) const {
  Endpoints e = *this;
  const FileFault fault = readPlainFile(iniFile, largestSettingsFile, Links::Followed).fault;
  if (why)
    *why = fault;
  if (fault != FileFault::None)
    return e;
  QSettings ini(iniFile, QSettings::IniFormat);
  ini.beginGroup(u"endpoints"_s);
  const QHash<QString, QString*> known = {{u"update"_s, &e.update}, {u"metar"_s, &e.metar},
                                          {u"taf"_s, &e.taf},       {u"cycles"_s, &e.cycles},
                                          {u"home"_s, &e.home},     {u"probe"_s, &e.probe}};
  const QStringList keys = ini.childKeys();
  for (const QString& name : keys) {
    // An address with a comma arrives as a list.
    const QString value = addressIn(iniFile, ini.value(name).toStringList().join(u','));
    if (QString* const* field = known.constFind(name) == known.cend() ? nullptr : &*known.constFind(name))
      **field = value;
    else if (name == u"ahead")
      e.ahead = aheadOf(value);
    else if (name == u"signed")
      e.signedUpdates = ini.value(name).toBool();
    else
      e.others.insert(name, value);
  }
  if (why && ini.status() == QSettings::AccessError)
    *why = FileFault::Failed;
  return e;
}

bool isLoopback(const QUrl& url) {
  return url.host() == u"localhost" || QHostAddress(url.host()).isLoopback();
}

QUrl stationFile(const QString& base, const StationCode& code) {
  const QString& text = code.text();
  const QString name = std::all_of(text.begin(), text.end(), isAsciiLetter)
                           ? text
                           : QString::fromLatin1(QUrl::toPercentEncoding(text));
  return QUrl(base + name + u".TXT"_s);
}

} // namespace soran
