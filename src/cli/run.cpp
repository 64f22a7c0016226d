// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/run.h"

#include "base/text.h"
#include "cli/headless.h"
#include "runs/night_desk.h"
#include "start/opening.h"
#include "terminal/picture_lookup.h"
#include "terminal/terminal.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Types the lines; a start that waits for the Enter key gets the first of them.
class Typist final : public Waiting {
 public:
  Typist(const QStringList& lines, Shutdown& shutdown) : lines_(lines), shutdown_(shutdown) {}

  QString next() const { return next_ < lines_.size() ? lines_[next_] : QString(); }
  void typeNext(Terminal& target) {
    const QString line = next();
    ++next_;
    for (const QChar c : line)
      target.handleKey(c);
    target.handleKey(u'\r');
  }
  bool hasMore() const { return next_ < lines_.size(); }

  void until(const std::function<bool()>& done) override {
    while (!done()) {
      typeNext(*terminal);
      shutdown_.check();
    }
  }

  Terminal* terminal = nullptr;

 private:
  const QStringList& lines_;
  Shutdown& shutdown_;
  qsizetype next_ = 0;
};

/// What a line needs that the watch brings elsewhere: the reports of a board or a map.
void bringReports(Terminal& terminal, const QString& line) {
  const QString typed = asciiUpper(line.simplified());
  const QString word = typed.section(u' ', 0, 0);
  if (word != u"BOARD" && word != u"MAP")
    return;
  if (const auto codes = boardCodes(terminal.program(), typed.section(u' ', 1)))
    terminal.cycle().askForUnknown(*codes);
}

} // namespace

int runLines(const LaunchOptions& options, DeliveredFile delivered, const QStringList& lines,
             StandardStream& output, StandardStream& errors) {
  SteppedTimers timers;
  Launch launch(options, timers, std::move(delivered));
  Headless desk;
  Typist typist(lines, launch.shutdown());
  Services services = launch.services(desk.frontEnd(typist));
  // Nobody is there, and the lines are to be typed.
  services.handsOver = false;
  Program program(services);
  if (launch.demo())
    errors.tell(demonstrationMark + u'\n');
  Opening opening(program);
  if (opening.start() != Opening::Result::Started) {
    errors.tell(u"soran-cli: "_s.append(opening.failure()).append(u'\n'));
    return notStarted;
  }
  desk.onDialog = [&errors](const QString& text) {
    errors.tell(QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').trimmed().append(u'\n'));
  };
  // A database that was restored, or cannot be made: the screen that tells it is soon another one.
  for (const QString& line : opening.notice().split(crlf.toString(), Qt::SkipEmptyParts))
    errors.tell(QString(line).append(u'\n'));
  for (const QJsonValue dialog : opening.notice().isEmpty() ? QJsonArray() : desk.takeSeen().dialogs)
    desk.onDialog(dialog[u"text"_s].toString());
  desk.onForm = [&program](const Form& shown) {
    if (std::holds_alternative<form::Picture>(shown))
      takePicture(program.services);
  };
  Terminal terminal(program);
  typist.terminal = &terminal;
  terminal.guarded([&] { terminal.start(opening.notice()); });
  while (typist.hasMore() && !terminal.ended()) {
    // Nobody is there to wait for the watch.
    terminal.guarded([&] { bringReports(terminal, typist.next()); });
    typist.typeNext(terminal);
    terminal.guarded([&] { terminal.cycle().completeSequence(); });
  }
  QString text = program.console.screen().text();
  text.replace(u"\r\n"_s, u"\n"_s);
  if (!text.endsWith(u'\n'))
    text += u'\n';
  const bool written = output.tell(text);
  terminal.close();
  return written ? 0 : outputLost;
}

} // namespace soran
