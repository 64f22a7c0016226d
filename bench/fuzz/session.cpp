// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The standard input of a session, from the start to the end of the input. No address leads off the machine.
#include "cli/session.h"

#include "delivered.h"
#include "lines.h"
#include "support/own_folder.h"
#include "targets.h"

#include <QBuffer>
#include <QDir>
#include <QJsonDocument>

namespace soran::fuzz {

namespace {

/// A program's directory with a started program's files, whose station files lie in a folder.
class Office {
 public:
  Office() {
    options_.home = directory_.filePath(QStringLiteral("home"));
    options_.now = readInstant(QStringLiteral("2026-11-24T14:20:00+09:00"));
    options_.endpoints = directory_.filePath(QStringLiteral("endpoints.ini"));
    writeWhole(options_.endpoints, "[endpoints]\nmetar=./stations/\ntaf=./forecasts/\ncycles=./cycles/\n");
    const QByteArray stamp = "2026/11/24 05:00\n";
    QDir(directory_.path()).mkpath(QStringLiteral("stations"));
    QDir(directory_.path()).mkpath(QStringLiteral("forecasts"));
    writeWhole(directory_.filePath(QStringLiteral("stations/RJTT.TXT")),
               stamp + "RJTT 240500Z 33010KT 9999 FEW020 BKN030CB 10/02 Q1020 RMK 1CU020 A3012\n");
    writeWhole(directory_.filePath(QStringLiteral("forecasts/RJTT.TXT")),
               stamp + "TAF RJTT 240500Z 2406/2512 33010KT\n     TEMPO 2412/2415 4000 -RA BKN010\n");
  }

  QList<QByteArray> answers(QByteArrayView input) {
    directory_.remove(options_.home);
    const InputFile file(input);
    LineInput lines(file.descriptor());
    QBuffer output;
    output.open(QIODevice::ReadWrite);
    Session(options_, delivered::file, lines, output, true).run();
    QList<QByteArray> answers = output.data().split('\n');
    require(answers.takeLast().isEmpty(), "the last state is ended");
    return answers;
  }

 private:
  OwnFolder directory_;
  LaunchOptions options_;
};

/// An event that waits for long, or that names a file elsewhere, is no matter of its reader.
bool isHarmless(const QByteArray& line) {
  const QJsonObject event = QJsonDocument::fromJson(line).object();
  const QString choice = event[u"choose"].toString();
  return event[u"tick"].toDouble() <= 60 && !choice.contains(u'/') && !choice.contains(u".lock");
}

void checkState(const QJsonObject& state) {
  const QString screen = state[u"screen"].toString();
  qsizetype end = 0;
  for (const QJsonValue run : state[u"runs"].toArray()) {
    require(run[0].toInteger() == end, "the runs stand in order");
    end += run[1].toInteger();
  }
  require(end == screen.size(), "the runs cover the screen");
  const qsizetype caret = state[u"caret"].toInteger();
  require(caret >= 0 && caret <= screen.size(), "the caret stands on the screen");
}

} // namespace

void session(QByteArrayView input) {
  static Office office;
  QByteArray harmless;
  int events = 0;
  for (const QByteArray& line : linesOf(input)) {
    if (isHarmless(line) && ++events <= 20)
      harmless += line + '\n';
  }
  int count = 0;
  bool ended = false;
  for (const QByteArray& line : office.answers(harmless)) {
    const QJsonDocument document = QJsonDocument::fromJson(line);
    require(document.isObject() && !ended, "each line is an object, and none follows the end");
    const QJsonObject answer = document.object();
    if (answer.contains(u"error")) {
      require(answer.size() == 1, "an error comes alone");
      continue;
    }
    require(answer[u"event"].toInt() == count++, "the states are counted");
    checkState(answer);
    ended = answer[u"ended"].toBool();
  }
  require(ended, "the last state tells the end");
}

} // namespace soran::fuzz
