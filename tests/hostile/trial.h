// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hostile/misdeeds.h"
#include "support/line_server.h"
#include "terminal/harness.h"

#include <vector>

namespace soran::hostile {

/// A server that answers with what it has, but for one address.
class Endpoint {
 public:
  Endpoint() : line_([this](LineServer::Request& request) { answer(request); }) {}

  /// The true file at a path; one that has none is a page.
  std::function<QByteArray(const QByteArray& path)> truth;

  /// From now on a misdeed befalls `path`, so many times.
  void spoil(const QByteArray& path, const Script& script, int times) {
    spoilt_ = path;
    script_ = script;
    times_ = times;
  }
  void mend() { times_ = 0; }
  /// Waits until all was sent that is to be.
  void settle() const;

  QString base() const { return line_.at({}).toString(); }
  int port() const { return line_.at({}).port(); }

 private:
  void answer(const LineServer::Request& request);
  void play(QTcpSocket& socket, const Script& script, qsizetype piece);

  QByteArray spoilt_;
  Script script_;
  int times_ = 0;
  std::shared_ptr<int> playing_ = std::make_shared<int>(0);
  LineServer line_;
};

/// A misdeed that befalls a path, and how often.
struct Attack {
  Misdeed misdeed;
  QByteArray path;
  Script script;
  int times;
};

/// Rolls which misdeed befalls a file. `content`: it is a report. `silent`: the time-out may be waited for.
Attack rollAttack(Dice& dice, const Material& material, bool content, bool silent);

/// One run of the program against an endpoint, over many tries.
class Trial {
 public:
  Trial();

  /// One try; tells what was shown that is not true, nothing where all is.
  QString attempt(Dice& dice);
  /// What the latest try was.
  const QString& told() const { return told_; }

 private:
  struct File {
    QByteArray now;
    QByteArray former;
    bool isNews = false; ///< the program has not been told of it
  };
  struct Station {
    QString code;
    File files[2] = {};    ///< METAR and TAF
    QStringList ever = {}; ///< every METAR there was
  };
  using Allowed = std::map<QString, QStringList>; ///< by path; an empty text is a refusal

  void renew(Station& station, ReportKind kind);
  void advance(Dice& dice);
  QByteArray fileAt(const QByteArray& path) const;
  QByteArray cycleFile(const QString& hour) const;
  Allowed allowed(const Attack* attack) const;
  QString honestRound();
  QString list(const Attack& attack, int ahead);
  QString watch(const Attack& attack);
  QString sequence(const Attack& attack);
  QString judgeReports(const Allowed& allowed) const;
  QString judgeSequence(const Attack& attack) const;

  std::vector<Station> stations_;
  int serial_ = 0;
  QString told_;
  QString codes_;
  QStringList notices_; ///< what the watch told since it was asked to look
  World world_;
  Endpoint endpoint_;
  ProgramRun run_{world_};
};

/// A start of the program that fetches its files, or renews its database, from a hostile endpoint.
QString attemptRenewal(Dice& dice, QString& told);

} // namespace soran::hostile
