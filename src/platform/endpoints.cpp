// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/endpoints.h"

#include "base/files.h"
#include "base/text.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QSettings>
#include <algorithm>
#include <arpa/inet.h>
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

/// The same of an address in which codes are put in, whose marks stay as they are.
QString addressFormIn(const QString& iniFile, const QString& value) {
  return addressIn(iniFile, value).replace(u"%7B"_s, u"{"_s).replace(u"%7D"_s, u"}"_s);
}

/// A number of a source's section, within its bounds; the standard value where there is none.
int countIn(const QSettings& ini, const QString& name, int standard, int least, int most) {
  bool isNumber = false;
  const int number = ini.value(name).toInt(&isNumber);
  return isNumber ? std::clamp(number, least, most) : standard;
}

/// That of a section [source.1], [source.2], ...; nothing of any other.
std::optional<int> sourceNumber(const QString& section) {
  bool isNumber = false;
  const int number = section.mid(7).toInt(&isNumber);
  return section.startsWith(u"source.") && isNumber && number > 0 ? std::optional(number) : std::nullopt;
}

/// There is more in it than comments.
bool saysAnything(const QByteArray& bytes) {
  const QList<QByteArray> lines = bytes.split('\n');
  return std::ranges::any_of(lines, [](const QByteArray& line) {
    const QByteArray text = line.trimmed();
    return !text.isEmpty() && !text.startsWith(';') && !text.startsWith('#');
  });
}

/// The sections [source.1], [source.2], ... in the order of their numbers. One without an address for either
/// kind is left out.
std::vector<ReportSource> sourcesIn(QSettings& ini, const QString& iniFile) {
  QMap<int, QString> sections;
  for (const QString& section : ini.childGroups()) {
    if (const std::optional<int> number = sourceNumber(section))
      sections.insert(*number, section);
  }
  std::vector<ReportSource> sources;
  for (const QString& section : std::as_const(sections)) {
    ini.beginGroup(section);
    const auto text = [&](const QString& name) { return ini.value(name).toStringList().join(u','); };
    ReportSource source{.name = text(u"name"_s),
                        .metar = addressFormIn(iniFile, text(u"metar"_s)),
                        .taf = addressFormIn(iniFile, text(u"taf"_s))};
    if (source.name.isEmpty())
      source.name = section.mid(7);
    if (text(u"form"_s) == u"raw-lines")
      source.form = ReportSource::Form::RawLines;
    source.list = countIn(ini, u"list"_s, source.list, 1, 400);
    source.pause = countIn(ini, u"pause"_s, source.pause, 0, 3600);
    ini.endGroup();
    if (!source.metar.isEmpty() && !source.taf.isEmpty())
      sources.push_back(std::move(source));
  }
  return sources;
}

/// QSettings reads the file once more and passes over a read that fails: then it lacks keys that stand there.
/// The last one tells, as what is read begins at the file's beginning.
bool lacksKeysOf(const QSettings& ini, const QByteArray& bytes) {
  const auto isPlain = [](QChar c) { return c.unicode() < 0x80 && c.isLetterOrNumber(); };
  QString last;
  for (const QString& line : textOfBytes(bytes).split(u'\n')) {
    const QString key = line.section(u'=', 0, 0).trimmed();
    if (line.contains(u'=') && !key.isEmpty() && std::all_of(key.begin(), key.end(), isPlain))
      last = key;
  }
  const QStringList known = ini.allKeys();
  const auto isLast = [&](const QString& key) { return key.section(u'/', -1) == last; };
  return !last.isEmpty() && std::none_of(known.begin(), known.end(), isLast);
}

bool isAddress(const QString& value) {
  const QUrl url(value);
  return url.isLocalFile() ||
         ((url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty());
}

/// What a section of a source says that is not taken.
QStringList remarksOnSource(const QSettings& ini) {
  QStringList remarks;
  for (const QString& name : {u"metar"_s, u"taf"_s}) {
    const QString value = ini.value(name).toStringList().join(u',');
    if (value.isEmpty())
      remarks.append(u"HAS NO ADDRESS FOR " + name.toUpper());
    else if (!value.startsWith(u"./") && !isAddress(value))
      remarks.append(name + u" IS NO ADDRESS");
  }
  if (const QString form = ini.value(u"form"_s).toString();
      !form.isEmpty() && form != u"noaa-station" && form != u"raw-lines")
    remarks.append(u"form IS NEITHER noaa-station NOR raw-lines"_s);
  for (const QString& name : {u"list"_s, u"pause"_s}) {
    bool isNumber = false;
    const int number = ini.value(name, 1).toInt(&isNumber);
    if (!isNumber || number < (name == u"list" ? 1 : 0))
      remarks.append(name + u" IS NO SUCH NUMBER");
  }
  return remarks;
}

/// What a file says that is not taken. One that only comments says nothing.
QStringList remarksOn(QSettings& ini, const QByteArray& bytes) {
  QStringList remarks;
  bool isOurs = false;
  for (const QString& section : ini.childGroups()) {
    ini.beginGroup(section);
    if (sourceNumber(section)) {
      for (const QString& remark : remarksOnSource(ini))
        remarks.append(u'[' + section + u"] " + remark);
      isOurs = true;
    } else if (section != u"endpoints") {
      remarks.append(u'[' + section + u"] IS NO SECTION OF IT");
    } else {
      isOurs = true;
      for (const QString& name :
           {u"update"_s, u"metar"_s, u"taf"_s, u"cycles"_s, u"home"_s, u"probe"_s, u"sigmet"_s}) {
        const QString value = ini.value(name).toStringList().join(u',');
        if (!value.isEmpty() && !value.startsWith(u"./") && !isAddress(value))
          remarks.append(name + u" IS NO ADDRESS");
      }
    }
    ini.endGroup();
  }
  if (!isOurs && saysAnything(bytes))
    remarks.append(u"NO SECTION [endpoints] OR [source.1] IN IT"_s);
  return remarks;
}

int aheadOf(const QString& value) {
  constexpr double most = 8;
  const double number = value.toDouble(); // 0 where it is none
  return std::isnan(number) ? 0 : int(std::clamp(number, 0.0, most));
}

} // namespace

Endpoints Endpoints::builtIn(const QString& delivered) {
  const QString reports = u"https://tgftp.nws.noaa.gov/data/"_s;
  const QString api = u"https://aviationweather.gov/api/data/"_s;
  Endpoints e;
  e.update = delivered + u"/update";
  e.home = delivered;
  e.metar = reports + u"observations/metar/stations/"_s;
  e.taf = reports + u"forecasts/taf/stations/"_s;
  e.cycles = reports + u"observations/metar/cycles/"_s;
  e.sigmet = api + u"isigmet?format=raw"_s;
  e.sources = {{.name = u"noaa"_s, .metar = e.metar + u"{code}.TXT", .taf = e.taf + u"{code}.TXT"}};
  e.sources.push_back({.name = u"awc"_s,
                       .form = ReportSource::Form::RawLines,
                       .metar = api + u"metar?ids={codes}&format=raw"_s,
                       .taf = api + u"taf?ids={codes}&format=raw"_s});
  return e;
}

Endpoints Endpoints::overriddenBy(const QString& iniFile, FileFault* why) const {
  Endpoints e = *this;
  const FileBytes read = readPlainFile(iniFile, largestSettingsFile, Links::Followed);
  if (why)
    *why = read.fault;
  if (!read.ok())
    return e;
  QSettings ini(iniFile, QSettings::IniFormat);
  if (why && (ini.status() == QSettings::AccessError || lacksKeysOf(ini, read.bytes)))
    *why = FileFault::Failed;
  for (const QString& remark : remarksOn(ini, read.bytes))
    e.remarks.append(QFileInfo(iniFile).fileName() + u": " + remark);
  const std::vector<ReportSource> listed = sourcesIn(ini, iniFile);
  ini.beginGroup(u"endpoints"_s);
  const QHash<QString, QString*> known = {
      {u"update"_s, &e.update}, {u"metar"_s, &e.metar}, {u"taf"_s, &e.taf},       {u"cycles"_s, &e.cycles},
      {u"home"_s, &e.home},     {u"probe"_s, &e.probe}, {u"sigmet"_s, &e.sigmet}, {u"shared"_s, &e.shared}};
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
  if (e.shared.startsWith(u"file:"))
    e.shared = QUrl(e.shared).toLocalFile();
  const bool namesOwn = !listed.empty() || keys.contains(u"metar"_s) || keys.contains(u"taf"_s);
  if (namesOwn)
    e.sources = listed;
  // Whoever names whom to ask for reports has no other host asked.
  if (namesOwn && !keys.contains(u"sigmet"_s))
    e.sigmet.clear();
  return e;
}

std::vector<ReportSource> Endpoints::reportSources() const {
  if (!sources.empty())
    return sources;
  return {{.name = u"noaa"_s, .metar = metar + u"{code}.TXT", .taf = taf + u"{code}.TXT", .pause = 0}};
}

bool isLoopback(const QUrl& url) {
  const QByteArray host = url.host().toLatin1();
  in_addr four{};
  if (host == "localhost" || ::inet_pton(AF_INET, host.constData(), &four) == 1)
    return host == "localhost" || (ntohl(four.s_addr) >> 24) == IN_LOOPBACKNET;
  in6_addr six{};
  if (::inet_pton(AF_INET6, host.constData(), &six) != 1)
    return false;
  return IN6_IS_ADDR_LOOPBACK(&six) || (IN6_IS_ADDR_V4MAPPED(&six) && six.s6_addr[12] == IN_LOOPBACKNET);
}

} // namespace soran
