// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/version_check.h"

#include "base/foreign_text.h"
#include "base/text.h"
#include "start/hand_over.h"
#include "terminal/terminal.h"
#include "update/program_update.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString question(const QString& version) {
  return u"SORAN は Version " + version +
         u" にアップデートされています　　\r\r最新版をダウンロードしますか？  ";
}

Reply askForVersion(Program& program) {
  return program.services.inet.open(QUrl(program.baseUrl + u"/data/version.dat"));
}

bool moduleIsReady(Program& program) {
  Services& services = program.services;
  return ProgramUpdate(services, program.tables, services.endpoints.update).readyModule();
}

/// True where the user wants it. Throws Unwind where the program was closed meanwhile.
bool isWanted(const QString& version, const Services& services) {
  const bool yes = services.dialogs.question(u" 確認"_s, question(version));
  services.shutdown.check();
  return yes;
}

} // namespace

bool VersionCheck::atStart() {
  Program& program = terminal_.program();
  const Settings& settings = program.settings();
  const Reply reply = askForVersion(program);
  if (!reply.ok)
    return true;
  if (reply.body.startsWith('<'))
    return false;
  const double version = leadingNumber(reply.text());
  if (version == settings[key::SORANバージョン].value_or(0))
    return true;
  const QString number = plainNumber(version);
  // A module that has just run would only run for ever.
  if (settings[key::起動時にバージョン確認] != true || !outcomeOfUpdate().isEmpty()) {
    passiveNotice(number);
    return true;
  }
  if (settings[key::更新確認メッセージ] == true && !isWanted(number, program.services))
    return true;
  if (!moduleIsReady(program)) {
    passiveNotice(number);
    return true;
  }
  terminal_.closeForUpdate();
}

void VersionCheck::onDemand() {
  constexpr qsizetype versionLength = 4;
  Program& program = terminal_.program();
  WatchCycle& cycle = terminal_.cycle();
  cycle.enableWatch(false);
  const Reply reply = askForVersion(program);
  if (!reply.ok) {
    tell(u"CANCEL DOWNLOAD DUE TO NETWORK UNRELIABLE"_s, u" 確認"_s,
         u"ネットワーク回線が不安定なため、ダウンロードすることができませんでした　　"_s);
    return;
  }
  const QString version = cleaned(reply.text()).left(versionLength);
  if (version.startsWith(u'<')) {
    tell(u"NOT FOUND FILES ON FTP SERVER"_s, u" 情報"_s, u"最新版の SORAN がインストールされています　　"_s);
    cycle.enableWatch(true);
  } else if (program.settings()[key::SORANバージョン].value_or(0) == leadingNumber(version)) {
    tell(u"ALREADY INSTALLED LATEST VERSION"_s, u" 情報"_s,
         u"最新版の SORAN がインストールされています　　\r\n\r\n                Version " +
             program.record().value(SettingIndex::SORANバージョン).toString());
    cycle.enableWatch(true);
  } else {
    offer(version);
  }
}

void VersionCheck::offer(const QString& version) {
  Program& program = terminal_.program();
  program.console.addLogEntry(u"FOUND LATEST VERSION ON FTP SERVER"_s);
  if (!isWanted(version, program.services))
    return;
  if (moduleIsReady(program))
    terminal_.closeForUpdate();
  showNotice(version, program.console.screen().text().size());
  terminal_.cycle().enableWatch(true);
}

void VersionCheck::tell(const QString& status, const QString& title, const QString& text) {
  Program& program = terminal_.program();
  program.console.addLogEntry(status);
  program.services.dialogs.message(title, text);
  program.services.shutdown.check();
}

void VersionCheck::passiveNotice(const QString& version) {
  // The notice stands behind the first line, whatever was written after that.
  constexpr qsizetype behindFirstLine = 18;
  showNotice(version, behindFirstLine);
  terminal_.awaitEnter();
}

void VersionCheck::showNotice(const QString& version, qsizetype paintFrom) {
  Console& console = terminal_.program().console;
  console.appendScreen(crlf + u"Now you can download a latest version " + version + crlf +
                       u"For download, keep network connection and select menu UPDATE or type 'UPDATE' out." +
                       crlf + crlf + u"To continue, hit ENTER key. " + crlf);
  console.setPromptGap(true);
  console.showReady();
  constexpr qsizetype noticeLength = 162;
  console.screen().paint(paintFrom, noticeLength, yellow);
  console.caretToEnd();
}

} // namespace soran
