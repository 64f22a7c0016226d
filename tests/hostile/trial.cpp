// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostile/trial.h"

#include "base/foreign_text.h"
#include <QRegularExpression>
#include <thread>

namespace soran::hostile {

namespace {

constexpr int always = 1000;

QByteArray pathOf(const QString& code, ReportKind kind) {
  return ((kind == ReportKind::Metar ? stationsPath : forecastsPath) + code + u".TXT").toLatin1();
}

/// What the screen shows of a station file: what stands behind the code.
QString contentOf(const QByteArray& file) {
  const QString text = cleaned(Reply{.body = file}.text());
  return text.section(u'\n', 1).section(QRegularExpression(u"(TAF )?\\bRJ.. "_s), 1).trimmed();
}

bool isCalled(const Attack& attack, QByteArrayView name) {
  return name == attack.misdeed.name;
}

/// The watch may tell of the file that an attack befalls.
bool mayTell(const Attack& attack, bool isNews) {
  const bool isRefused = attack.script.shows == Shows::Refusal;
  // A file that is whole and no report is a change, as a page is; so is the good one behind it.
  if (attack.misdeed.of == Misdeed::Of::Page || (attack.misdeed.of == Misdeed::Of::Content && isRefused))
    return true;
  const bool recovers = attack.times < always;
  const bool isFuture = isCalled(attack, "a report of the future");
  if (isFuture && recovers)
    return true;
  return isNews && (recovers || !(isRefused || isFuture || isCalled(attack, "an older report")));
}

QString shortened(const QString& text) {
  return QString(text).replace(u"\r\n"_s, u"|"_s).right(600);
}

} // namespace

Attack rollAttack(Dice& dice, const Material& material, bool content, bool silent) {
  const std::span<const Misdeed> all = misdeeds();
  constexpr int silences = 20; // one of so many is waited for
  while (true) {
    const Misdeed misdeed = dice.oneOf(all);
    const bool fits = misdeed.of == Misdeed::Of::Silence ? silent && dice.below(silences) == 0
                                                         : content || misdeed.of == Misdeed::Of::Transfer;
    if (!fits)
      continue;
    const int times = dice.below(4) == 0 ? 1 : always;
    return {misdeed, material.path, misdeed.play(dice, material), times};
  }
}

Trial::Trial() {
  endpoint_.truth = [this](const QByteArray& path) { return fileAt(path); };
  Endpoints& endpoints = run_.program.services.endpoints;
  endpoints.metar = endpoint_.base() + stationsPath;
  endpoints.taf = endpoint_.base() + forecastsPath;
  endpoints.cycles = endpoint_.base() + cyclesPath;
  for (const QString& code : {u"RJTT"_s, u"RJAA"_s, u"RJBB"_s, u"RJCC"_s})
    stations_.push_back({.code = code});
  for (Station& station : stations_) {
    codes_ += (codes_.isEmpty() ? u""_s : u" "_s) + station.code;
    for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf, ReportKind::Metar, ReportKind::Taf})
      renew(station, kind);
  }
  world_.prepare([this](Tables& tables) { setAutoList(tables, codes_); });
  QObject::connect(&run_.program.console, &Console::newReports, &run_.program.console,
                   [this](const QStringList& notices) { notices_ += notices; });
  run_.begin();
  run_.tick();
}

void Trial::renew(Station& station, ReportKind kind) {
  const QDateTime time = world_.clock.now().toUTC().addSecs(-60);
  const QString number = QString::number(++serial_).rightJustified(5, u'0');
  const QString text = station.code + time.toString(u" ddHHmm"_s) + u"Z " + number +
                       u"KT 9999 FEW030 12/02 Q1018 END" + number;
  const QString head = time.toString(u"yyyy/MM/dd HH:mm\n"_s) + (kind == ReportKind::Taf ? u"TAF "_s : u""_s);
  File& file = station.files[int(kind)];
  file = {.now = (head + text + u'\n').toLatin1(), .former = file.now, .isNews = true};
  if (kind == ReportKind::Metar)
    station.ever.append(text.mid(station.code.size() + 1));
}

void Trial::advance(Dice& dice) {
  world_.clock.advance(60 * int(dice.from(1, 20)));
  for (Station& station : stations_) {
    for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf}) {
      if (dice.below(2))
        renew(station, kind);
    }
  }
}

QByteArray Trial::fileAt(const QByteArray& path) const {
  const bool isLure = path.startsWith("/lure");
  for (const Station& station : stations_) {
    for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf}) {
      QByteArray file = station.files[int(kind)].now;
      if (path.endsWith(pathOf(station.code, kind)))
        return isLure ? file.replace("FEW030", "LURE") : file;
    }
  }
  if (path.contains("RJXX"))
    return QByteArray(stations_[0].files[0].now).replace("RJTT", "RJXX").replace("FEW030", "OTHER");
  return path.startsWith(cyclesPath.toLatin1()) ? cycleFile(QString::fromLatin1(path.last(7).first(2))) : "";
}

QByteArray Trial::cycleFile(const QString& hour) const {
  QByteArray file = "HOUR " + hour.toLatin1() + "\n";
  const QString day = world_.clock.now().toUTC().toString(u"dd"_s);
  for (const Station& station : stations_) {
    for (const QString& report : station.ever) {
      if (report.startsWith(day + hour))
        file += (station.code + u' ' + report + u"\n\n").toLatin1();
    }
  }
  return file;
}

QString Trial::attempt(Dice& dice) {
  advance(dice);
  told_ = u"the round before"_s;
  if (QString wrong = dice.below(2) ? honestRound() : QString(); !wrong.isEmpty())
    return wrong;
  const Station& station = stations_[size_t(dice.below(qsizetype(stations_.size())))];
  const ReportKind kind = dice.below(2) ? ReportKind::Taf : ReportKind::Metar;
  const File& file = station.files[int(kind)];
  Material material{.body = file.now,
                    .other = fileAt("RJXX"),
                    .otherPath = pathOf(u"RJXX"_s, kind),
                    .older = file.former,
                    .future = file.now,
                    .path = pathOf(station.code, kind),
                    .port = endpoint_.port()};
  material.future.replace(
      0, 16, world_.clock.now().toUTC().addSecs(7800).toString(u"yyyy/MM/dd HH:mm"_s).toLatin1());
  const auto drive = dice.below(10);
  const bool isCycleFile = drive == 9 && dice.below(2);
  if (isCycleFile) {
    const QString hour = world_.clock.now().toUTC().toString(u"HH"_s);
    material.path = (cyclesPath + hour + u"Z.TXT").toLatin1();
    material.body = cycleFile(hour);
  }
  const Attack attack = rollAttack(dice, material, !isCycleFile, drive < 7);
  told_ = QString::fromLatin1(attack.misdeed.name) + u" at " + QString::fromLatin1(attack.path) +
          u", way "_s + QString::number(drive);
  endpoint_.spoil(attack.path, attack.script, attack.times);
  QString wrong = drive < 5   ? list(attack, 0)
                  : drive < 7 ? list(attack, 4)
                  : drive < 9 ? watch(attack)
                              : sequence(attack);
  if (!wrong.isEmpty())
    return wrong;
  endpoint_.mend();
  endpoint_.settle();
  if (attack.script.leavesAlone)
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  told_ += u", mended";
  return honestRound();
}

Trial::Allowed Trial::allowed(const Attack* attack) const {
  Allowed all;
  const bool outOfStep = attack && (!attack->script.surplus.isEmpty() || attack->script.leavesAlone ||
                                    isCalled(*attack, "something ahead of it"));
  for (const Station& station : stations_) {
    for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf}) {
      const QByteArray path = pathOf(station.code, kind);
      QStringList& may = all[QString::fromLatin1(path)];
      const bool isHit = attack && attack->path == path;
      const Shows shows = isHit ? attack->script.shows : Shows::Truth;
      const bool recovers = isHit && attack->times < always;
      if (shows == Shows::Truth || shows == Shows::Either || recovers || (outOfStep && !isHit))
        may.append(contentOf(station.files[int(kind)].now));
      if (shows == Shows::Itself)
        may.append(contentOf(attack->script.body));
      if ((shows == Shows::Refusal && !(recovers && attack->script.askedAgain)) || shows == Shows::Either ||
          outOfStep)
        may.append(QString());
    }
  }
  return all;
}

QString Trial::honestRound() {
  run_.program.services.endpoints.ahead = 0;
  run_.type(codes_);
  for (Station& station : stations_) {
    for (File& file : station.files)
      file.isNews = false;
  }
  return judgeReports(allowed(nullptr));
}

QString Trial::list(const Attack& attack, int ahead) {
  run_.program.services.endpoints.ahead = ahead;
  run_.inet.setRequestTimeout(attack.misdeed.of == Misdeed::Of::Silence ? 1 : 10);
  run_.type(codes_);
  return judgeReports(allowed(&attack));
}

QString Trial::watch(const Attack& attack) {
  run_.program.services.endpoints.ahead = 0;
  notices_.clear();
  run_.tick(61);
  Allowed may = allowed(&attack);
  for (const Station& station : stations_) {
    bool mayBeTold = false;
    for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf}) {
      const File& file = station.files[int(kind)];
      const QByteArray path = pathOf(station.code, kind);
      mayBeTold = mayBeTold || (attack.path == path ? mayTell(attack, file.isNews) : file.isNews);
      // What was shown before stays where nothing new came.
      may[QString::fromLatin1(path)].append(contentOf(file.former));
      may[QString::fromLatin1(path)].append(contentOf(file.now));
    }
    const bool wasTold = std::any_of(notices_.begin(), notices_.end(),
                                     [&](const QString& notice) { return notice.startsWith(station.code); });
    if (wasTold && !mayBeTold)
      return u"announced "_s + notices_.join(u", ");
  }
  return judgeReports(may);
}

QString Trial::sequence(const Attack& attack) {
  run_.tick(61);
  run_.type(u"SQ "_s + codes_);
  QString wrong = judgeSequence(attack);
  // It is not repeated by the watch.
  run_.type(codes_);
  return wrong;
}

QString Trial::judgeReports(const Allowed& allowed) const {
  static const QRegularExpression head(u"^(RJ..)  (METAR|SPECI|TAF  |NOT FOUND) ?(\\d{4}I)?$"_s);
  const QString screen = run_.screen();
  const qsizetype begin = screen.lastIndexOf(u"***\r\n"_s) + 5;
  std::map<QString, QString> shown;
  QString path;
  for (QString line : screen.mid(begin).split(u'\n')) {
    line.remove(u'\r');
    if (const auto found = head.match(line); found.hasMatch()) {
      const bool isForecast = found.captured(2) == u"TAF  ";
      path = QString::fromLatin1(pathOf(found.captured(1), isForecast ? ReportKind::Taf : ReportKind::Metar));
      shown[path];
    } else if (!line.trimmed().isEmpty() && line != ready.mid(2) && line.trimmed() != u"NO FORECAST") {
      shown[path] += (shown[path].isEmpty() ? u""_s : u" "_s) + line.trimmed();
    }
  }
  for (const auto& [at, text] : shown) {
    if (!allowed.contains(at) || !allowed.at(at).contains(text))
      return at + u" shows \""_s + text + u"\": " + shortened(screen);
  }
  for (const Station& station : stations_) {
    const QString metar = QString::fromLatin1(pathOf(station.code, ReportKind::Metar));
    const QString taf = QString::fromLatin1(pathOf(station.code, ReportKind::Taf));
    if (!shown.contains(metar) || (!shown[metar].isEmpty() && !shown.contains(taf)))
      return station.code + u" is missing: "_s + shortened(screen);
  }
  return {};
}

QString Trial::judgeSequence(const Attack& attack) const {
  static const QRegularExpression title(u"^\\*\\*\\* (RJ..) - "_s);
  static const QRegularExpression other(u"^RJ..  (METAR|SPECI|NO DATA|LOADING|NOT FOUND)|^READY|^$"_s);
  const Station* station = nullptr;
  for (QString line : run_.screen().split(u'\n')) {
    line = line.trimmed();
    if (const auto found = title.match(line); found.hasMatch())
      station = &*std::find_if(stations_.begin(), stations_.end(),
                               [&](const Station& s) { return s.code == found.captured(1); });
    else if (!other.match(line).hasMatch() &&
             !(station && (station->ever.contains(line) || contentOf(attack.script.body) == line)))
      return u"a sequence shows \""_s + line + u"\": " + shortened(run_.screen());
  }
  return {};
}

QString attemptRenewal(Dice& dice, QString& told) {
  World world;
  Endpoint endpoint;
  const bool isThere = dice.below(2);
  if (isThere)
    world.prepare();
  const QByteArray versions = isThere ? "4.31\n1.01\n1.01\n" : "4.31\n1.00\n1.00\n";
  const std::map<QByteArray, QByteArray> files = {
      {"/data/version.dat", versions},
      {"/data/update.exe", "module\n"},
      {"/data/soran.mdb", World::deliveredDatabase()},
      {"/data/error.wav", delivered::file(u"update/data/error.wav"_s)},
      {"/data/ring.wav", delivered::file(u"update/data/ring.wav"_s)},
  };
  endpoint.truth = [&](const QByteArray& path) {
    return files.contains(path) ? files.at(path) : QByteArray();
  };
  const auto& [path, body] = *std::next(files.begin(), dice.below(qsizetype(files.size())));
  const Attack attack = rollAttack(
      dice, {.body = body, .other = "other\n", .path = path, .port = endpoint.port()}, false, false);
  told = QString::fromLatin1(attack.misdeed.name) + u" at " + QString::fromLatin1(path) +
         (isThere ? u", a renewal"_s : u", a first start"_s);
  endpoint.spoil(path, attack.script, attack.times);
  world.endpoints.update = world.endpoints.home = endpoint.base();
  if (isThere)
    world.store([&](Tables& tables) { tables.settings().store(key::BASEurl, endpoint.base()); });
  {
    ProgramRun run(world);
    run.start();
  }
  const auto isTrueOrNone = [&](const QString& name, const QByteArray& wanted) {
    const QByteArray there = contents(world.path(name));
    return there.isEmpty() || there == wanted;
  };
  if ((isThere || fileExists(world.path(u"soran.mdb"_s))) && !isWholeDatabase(world.path(u"soran.mdb"_s)))
    return u"the database is spoilt"_s;
  for (const char* name : {"error.wav", "ring.wav"}) {
    if (!isTrueOrNone(u"sound/"_s + QString::fromLatin1(name), files.at(QByteArray("/data/") + name)))
      return QString::fromLatin1(name) + u" is spoilt"_s;
  }
  if (!isTrueOrNone(u"update.exe"_s, files.at("/data/update.exe")) &&
      !isTrueOrNone(u"update.exe"_s, "module"))
    return u"update.exe is spoilt"_s;
  return {};
}

} // namespace soran::hostile
