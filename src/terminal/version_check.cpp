// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The check for a newer program, by the menu or typed.

#include "base/text.h"
#include "terminal/view.h"

namespace soran {

using namespace Qt::StringLiterals;

void View::checkForNewVersion() {
  constexpr qsizetype versionLength = 4;
  Console& console = program_.console;
  Dialogs& dialogs = program_.services.dialogs;
  const auto tell = [&](const QString& status, const QString& title, const QString& text) {
    console.addLogEntry(status);
    dialogs.message(title, text);
    program_.services.shutdown.check();
  };
  cycle_.enableWatch(false);
  const Reply reply = program_.services.inet.open(QUrl(program_.baseUrl + u"/data/version.dat"));
  if (!reply.ok) {
    tell(u"CANCEL DOWNLOAD DUE TO NETWORK UNRELIABLE"_s, u" 確認"_s,
         u"ネットワーク回線が不安定なため、ダウンロードすることができませんでした　　"_s);
    return;
  }
  const QString version = reply.text().left(versionLength);
  if (version.startsWith(u'<')) {
    tell(u"NOT FOUND FILES ON FTP SERVER"_s, u" 情報"_s, u"最新版の SORAN がインストールされています　　"_s);
    cycle_.enableWatch(true);
  } else if (program_.settings()[key::SORANバージョン].value_or(0) == leadingNumber(version)) {
    tell(u"ALREADY INSTALLED LATEST VERSION"_s, u" 情報"_s,
         u"最新版の SORAN がインストールされています　　\r\n\r\n                Version " +
             program_.record().value(SettingIndex::SORANバージョン).toString());
    cycle_.enableWatch(true);
  } else {
    offerVersion(version);
  }
}

void View::offerVersion(const QString& version) {
  program_.console.addLogEntry(u"FOUND LATEST VERSION ON FTP SERVER"_s);
  const bool yes = program_.services.dialogs.question(u" 確認"_s, versionQuestion(version));
  program_.services.shutdown.check();
  if (!yes)
    return;
  if (!updaterMayRun()) {
    showNewVersionNotice(version, program_.console.screen().text().size());
    cycle_.enableWatch(true);
    return;
  }
  updaterRequested_ = true;
  close();
  throw Unwind{};
}

QString View::versionQuestion(const QString& version) {
  return u"SORAN は Version " + version +
         u" にアップデートされています　　\r\r最新版をダウンロードしますか？  ";
}

} // namespace soran
