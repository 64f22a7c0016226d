// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/interactive.h"

#include "base/text.h"
#include "start/hand_over.h"
#include "terminal/first_activation.h"
#include "terminal/picture_lookup.h"

#include <QEventLoop>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;
using Look = TerminalOutput::Look;

namespace {

/// A wait for the network that is shorter needs no words.
constexpr int slowRun = 1500; // milliseconds
constexpr qsizetype logRowsShown = 20;

/// Types what is missing so that the program's typed line becomes `line`; other keys than characters do not
/// come from a line.
void typeInto(Terminal& terminal, const QString& line) {
  const Console& console = terminal.program().console;
  QString wanted;
  std::copy_if(line.begin(), line.end(), std::back_inserter(wanted),
               [](QChar c) { return c >= u' ' && c != u'\x7F'; });
  // A null text begins with none, not even with an empty one.
  while (!console.inputlbl().isEmpty() && !wanted.startsWith(console.inputlbl()))
    terminal.handleKey(u'\b');
  for (const QChar c : wanted.mid(console.inputlbl().size()))
    terminal.handleKey(c);
  terminal.handleKey(u'\r');
}

} // namespace

Interactive::Interactive(const LaunchOptions& options, DeliveredFile delivered, TerminalStyle style)
    : output_(editor_, style), launch_(options, timers_, std::move(delivered)), waiting_(launch_.shutdown()),
      desk_(output_, launch_.shutdown()),
      program_(launch_.services({desk_, desk_, desk_, printers_, desk_, waiting_})), view_(program_),
      terminal_(view_.terminal()) {
  const QByteArray demo = launch_.demo() ? "DEMONSTRATION DATA " : "";
  editor_.setPrompt(demo + "> ", [this](const std::optional<QString>& line) {
    if (line)
      enterLine(*line);
    else
      end();
  });
  connect(&signals_, &SignalWatch::closing, this, [this] { end(); });
  connect(&signals_, &SignalWatch::resized, &editor_, &LineEditor::resized);
  connect(&signals_, &SignalWatch::resumed, &editor_, &LineEditor::resumed);
  connect(&view_, &View::stopped, this, [this] {
    output_.flush();
    editor_.stop();
  });
  desk_.showForm = [this](const Form& form) { return showForm(form); };
  slow_.setSingleShot(true);
  slow_.setInterval(slowRun);
  connect(&slow_, &QTimer::timeout, this, &Interactive::tellSlowRun);
  // The pane closes when it has come up.
  desk_.onPane = [this] { emit paneShown(); };
  connect(
      this, &Interactive::paneShown, this,
      [this] { terminal_.guarded([this] { terminal_.pane().close(); }); }, Qt::QueuedConnection);
}

int Interactive::run() {
  if (launch_.demo())
    output_.tell(demonstrationWarning.toString(), Look::Bold);
  std::optional<Opening> opening(program_);
  try {
    const Opening::Result result = opening->start();
    if (result != Opening::Result::Started)
      return failedStart(*opening, result);
  } catch (const Unwind&) {
    return 0;
  }
  started_ = true;
  QEventLoop loop;
  connect(&view_, &View::stopped, &loop, &QEventLoop::quit);
  output_.attach(program_.console);
  connectConsole();
  output_.tell(u"ENTER A COMMAND OR STATION CODES. EXIT, ESC ESC OR CTRL-D ENDS THE PROGRAM."_s, Look::Dim);
  emit editor_.promptWanted();
  terminal_.guarded([&] { terminal_.start(opening->notice()); });
  if (!terminal_.ended())
    loop.exec();
  if (!terminal_.updaterRequested())
    return 0;
  opening.reset(); // the module waits for the program to let go of its directory
  output_.tell(u"THE UPDATE MODULE TAKES OVER"_s, Look::Bold);
  editor_.release();
  handOver(program_.services, launch_.endpointsFile(), HandOver::InPlace);
  output_.tell(u"THE UPDATE MODULE CANNOT BE STARTED"_s, Look::Bold);
  return 1;
}

int Interactive::failedStart(const Opening& opening, Opening::Result result) {
  // All others were told by a message already.
  if (result == Opening::Result::NoNetwork)
    output_.tell(u"soran-cli: " + opening.failure());
  return 1;
}

void Interactive::end() {
  if (started_)
    terminal_.close();
  else
    launch_.shutdown().request();
}

void Interactive::enterLine(const QString& line) {
  if (terminal_.ended())
    return;
  output_.noteTypedLine();
  LineEditor::remember(line);
  offered_.clear();
  typeInto(terminal_, line);
  if (!terminal_.ended())
    offerRest();
}

/// Some commands leave their word in the typed line: it is shown, so that what runs next is what is seen.
void Interactive::offerRest() {
  const QString& rest = program_.console.inputlbl();
  if (rest.isEmpty() || program_.console.busy() || !editor_.typed().isEmpty())
    return;
  offered_ = rest;
  editor_.setTyped(rest);
}

void Interactive::connectConsole() {
  Console& console = program_.console;
  connect(&console, &Console::inputChanged, this, &Interactive::followTypedLine);
  connect(&console, &Console::busyChanged, &slow_, qOverload<>(&QTimer::start));
  connect(&console.status(), &StatusBar::changed, this, &Interactive::followStatus);
  connect(&console, &Console::overlayChanged, this, [this] {
    if (program_.console.overlay())
      output_.tell(bannerText(program_.record()));
  });
  // Typing holds the automatic cycle off, though the line comes to the program as a whole.
  connect(&editor_, &LineEditor::keyPressed, this, [this] { program_.watchTicks = 0; });
}

void Interactive::followTypedLine() {
  const Console& console = program_.console;
  if (console.padlbl().size() > console.inputlbl().size() && console.padlbl().startsWith(console.inputlbl()))
    changes_ = console.padlbl().mid(console.inputlbl().size());
  if (!offered_.isEmpty() && console.inputlbl().isEmpty()) {
    if (editor_.typed() == offered_)
      editor_.setTyped(QString());
    offered_.clear();
  }
}

/// The loss of the network and its return; while it is there, each look at it writes the panel anew.
void Interactive::followStatus() {
  const QString& panel = program_.console.status().panel1();
  if (panel == panel1_ || panel.isEmpty())
    return;
  panel1_ = panel;
  if (!program_.networkAvailable)
    output_.tell(panel, Look::Dim);
}

void Interactive::tellSlowRun() {
  const Console& console = program_.console;
  // A list that says LOADING grows before the user's eyes.
  const bool loading = linesOf(console.screen().text()).constLast().startsWith(u"LOADING");
  if (console.busy() && program_.runMemory.enterTyped && !loading && !terminal_.ended())
    output_.tell(console.status().panel2() + u" ...", Look::Dim);
}

bool Interactive::showForm(const Form& form) {
  if (std::holds_alternative<form::Log>(form)) {
    showLog();
  } else if (std::holds_alternative<form::Picture>(form)) {
    showPictureName();
  } else if (std::holds_alternative<form::NewReports>(form)) {
    output_.tell(u"NEW REPORTS: " + changes_.trimmed(), Look::Bold);
    changes_.clear();
  } else if (std::holds_alternative<form::Alert>(form)) {
    output_.tell(u"COMMUNICATION ERROR"_s, Look::Bold);
  } else {
    // The tray means nothing here.
    return std::holds_alternative<form::TaskIcon>(form);
  }
  return true;
}

void Interactive::showLog() {
  const std::deque<LogRow>& rows = program_.console.log().rows();
  const Colour speci = program_.settings()[key::SPECIの色].value_or(yellow);
  for (qsizetype i = std::min(logRowsShown, qsizetype(rows.size())); i-- > 0;) {
    const LogRow& row = rows[size_t(i)];
    // Black, on the form's white, is the terminal's own colour.
    output_.tell(row.date + u"  " + row.time + u"  " + row.message, RunningLog::colourOf(row, speci), black);
  }
}

void Interactive::showPictureName() {
  takePicture(program_.services);
  output_.tell(u"PICTURE OF " + asciiUpper(trimBlanks(program_.console.inputlbl())) +
                   u": SHOWN BY THE WINDOW, START soran",
               Look::Dim);
}

} // namespace soran
