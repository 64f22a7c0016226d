// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/view.h"

#include "base/skip.h"
#include "base/text.h"
#include "start/hand_over.h"
#include "start/own_directory.h"
#include "store/daily_backup.h"
#include "terminal/command_line.h"
#include "update/program_update.h"

#include <QDir>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcView, "soran.terminal")

constexpr QStringView rule = u"_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/";
constexpr QChar backspace = u'\b';
constexpr QChar enterKey = u'\r';
constexpr QChar escape = u'\x1B';

} // namespace

View::View(Program& program)
    : program_(program), printing_(program), decode_(program),
      cycle_(program, decode_, printing_, [this](const std::function<void()>& tick) { guarded(tick); }),
      pane_(program), menus_(*this) {}

void View::guarded(const std::function<void()>& event) const {
  if (ended_)
    return;
  try {
    event();
  } catch (const Unwind&) {
    // The program was closed during a wait of this event; there is nothing left to do.
  }
}

void View::start(const QString& notice) {
  load(notice);
  firstActivation();
}

QString View::banner() const {
  return rule + u"\r\r   SORAN / AVIATION WEATHER AUTOMATIC DECODER   \r\r       Version " +
         program_.record().value(SettingIndex::SORANバージョン).toString() + u"\r\r" + rule;
}

void View::removeLeftovers() const {
  QStringList names = {u"sequence.dat"_s, u"figure.dat"_s};
  for (int hour = 0; hour < 24; ++hour)
    names.append(twoDigits(hour) + u".dat");
  for (const QString& name : names)
    QFile::remove(program_.services.path(u"data/") + name);
}

void View::load(const QString& notice) {
  Console& console = program_.console;
  Settings& settings = program_.settings();
  program_.runMemory.automatic = true;
  program_.runMemory.loadPending = true;
  removeLeftovers();
  program_.services.inet.setRequestTimeout(60);
  // The text is written in the colours of the settings from the first character on.
  console.applyDisplaySettings();
  if (program_.networkAvailable) {
    console.screen().setText(u"SYSTEM INITIALIZED"_s);
    console.caretToEnd();
    console.setPanel(1, u"ネットワーク接続待機"_s);
    console.setPanel(2, u"システム初期化中"_s);
  } else {
    console.appendScreen(crlf + u"NO NETWORK CONNECTION" + crlf);
    console.caretToEnd();
  }
  if (program_.tables.autoList().recordCount() == 0)
    settings.store(key::自動デコード有効, false);
  if (settings[key::自動デコード有効] == false) {
    console.screen().setText(u"DATABASE CONNECTION COMPLETED" + crlf + u"AUTO DECODE SEQUENCE DISABLED" +
                             crlf);
    console.showReady();
    program_.runMemory.loadPending = false;
  }
  console.applyDisplaySettings();
  console.appendScreen(crlf.toString());
  const QString failure =
      outcomeOfUpdate() == u"failed" ? u"PROGRAM UPDATE FAILED / SEE UPDATE.LOG"_s : QString();
  for (const QString& line : {notice, failure}) {
    if (line.isEmpty())
      continue;
    console.appendScreen(line + crlf);
    console.addLogEntry(line);
  }
  console.caretToEnd();
  readTimeZone();
}

void View::readTimeZone() {
  const Clock& clock = program_.services.clock;
  program_.systemZoneOffset = clock.offsetHours();
  const QString name = clock.zoneName();
  const qsizetype bracket = name.indexOf(u'(');
  program_.systemZoneName = bracket < 0 ? name : name.left(bracket).trimmed();
}

void View::firstActivation() {
  Console& console = program_.console;
  program_.cycleDecade = 25;
  console.groupName.clear();
  console.setSequencePending(false);
  program_.runMemory.group.clear();
  program_.runMemory.japanesePending = false;
  program_.runMemory.enterTyped = false;
  updaterRequested_ = false;
  program_.inputHistory = u" "_s;
  console.setOverlay(program_.networkAvailable);
  menus_.takeAirports();
  bool formsLoaded = true;
  if (program_.networkAvailable)
    checkVersionAtStart(formsLoaded);
  if (formsLoaded)
    console.log().load();
  if (program_.runMemory.loadPending) {
    console.appendScreen(u"DATABASE CONNECTION COMPLETED" + crlf);
    console.caretToEnd();
  }
  cycle_.start();
}

void View::checkVersionAtStart(bool& formsLoaded) {
  Settings& settings = program_.settings();
  const Reply reply = program_.services.inet.open(QUrl(program_.baseUrl + u"/data/version.dat"));
  if (!reply.ok)
    return;
  if (reply.body.startsWith('<')) {
    formsLoaded = false;
    return;
  }
  const double version = leadingNumber(reply.text());
  if (version == settings[key::SORANバージョン].value_or(0))
    return;
  const QString number = plainNumber(version);
  // A module that has just run would only run for ever.
  if (settings[key::起動時にバージョン確認] != true || !outcomeOfUpdate().isEmpty()) {
    passiveNotice(number);
    return;
  }
  if (settings[key::更新確認メッセージ] == true) {
    const bool yes = program_.services.dialogs.question(u" 確認"_s, versionQuestion(number));
    program_.services.shutdown.check();
    if (!yes)
      return;
  }
  if (!updaterMayRun()) {
    passiveNotice(number);
    return;
  }
  updaterRequested_ = true;
  close();
  throw Unwind{};
}

void View::passiveNotice(const QString& version) {
  // The notice stands behind the first line, whatever was written after that.
  constexpr qsizetype behindFirstLine = 18;
  showNewVersionNotice(version, behindFirstLine);
  program_.runMemory.enterTyped = false;
  enterSeen_ = false;
  program_.services.waiting.until([this] { return enterSeen_; });
}

void View::showNewVersionNotice(const QString& version, qsizetype paintFrom) {
  Console& console = program_.console;
  console.appendScreen(crlf + u"Now you can download a latest version " + version + crlf +
                       u"For download, keep network connection and select menu UPDATE or type 'UPDATE' out." +
                       crlf + crlf + u"To continue, hit ENTER key. " + crlf);
  console.setPromptGap(true);
  console.showReady();
  constexpr qsizetype noticeLength = 162;
  console.screen().paint(paintFrom, noticeLength, yellow);
  console.caretToEnd();
}

bool View::updaterMayRun() const {
  return ProgramUpdate::moduleMayRun(program_.services);
}

void View::noInternetAlert() {
  program_.services.dialogs.message(u" 確認"_s, u"インターネットに接続できません　　"_s);
  program_.services.shutdown.check();
}

void View::handleKey(QChar key) {
  if (ended_)
    return;
  Console& console = program_.console;
  program_.runMemory.group.clear();
  program_.runMemory.japanesePending = false;
  ++program_.userActs;
  today_ = program_.services.clock.now().date();
  program_.watchTicks = 0;
  if (key == escape) {
    close();
  } else if (key == backspace) {
    if (!console.inputlbl().isEmpty())
      console.setInput(console.inputlbl().chopped(1));
  } else if (key != enterKey) {
    console.setInput(console.inputlbl() + key);
  } else {
    guarded([this] { enter(); });
    enterSeen_ = true;
  }
}

void View::enter() {
  program_.runMemory.enterTyped = true;
  const QString text = asciiUpper(trimBlanks(program_.console.inputlbl()));
  if (text.isEmpty())
    return;
  rememberWord(program_.inputHistory, text);
  runCommand(*this, text);
}

void View::closeBox() {
  if (pane_.visible())
    pane_.close();
  else
    close();
}

void View::close() {
  if (ended_)
    return;
  ended_ = true;
  program_.services.shutdown.request();
  stop();
  emit stopped();
}

bool View::countExit() {
  constexpr int exitsBetweenCompactions = 50;
  Settings& settings = program_.settings();
  const int exits = settings[key::起動回数].value_or(0);
  const bool compact = exits > exitsBetweenCompactions;
  settings.store(key::起動回数, compact ? 0 : exits + 1);
  return compact;
}

void View::stop() {
  Services& services = program_.services;
  cycle_.stop();
  services.inet.cancel();
  services.inet2.cancel();
  services.pages.closePane();
  const bool compact = countExit();
  removeScratchFolder(services.directory, u"data"_s);
  removeScratchFolder(services.directory, u"help"_s);
  program_.tables.closeAll();
  if (compact)
    passOver(lcView(), "compacting the database",
             [&] { compactDatabase(services.path(u"soran.mdb"), services.path(u"soran_temp.mdb")); });
  backUpDaily(services.path(u"soran.mdb"), services.clock);
}

} // namespace soran
