// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/terminal.h"

#include "base/text.h"
#include "terminal/command_line.h"
#include "terminal/first_activation.h"
#include "terminal/stop.h"

namespace soran {

namespace {

constexpr QChar backspace = u'\b';
constexpr QChar enterKey = u'\r';
constexpr QChar escape = u'\x1B';

} // namespace

Terminal::Terminal(Program& program, TerminalListener& listener)
    : program_(program), listener_(listener), printing_(program), decode_(program),
      cycle_(program, decode_, printing_), pane_(program, listener), forms_(program, cycle_, listener),
      menus_(*this, listener), versionCheck_(*this) {}

void Terminal::start(const QString& notice) {
  updaterRequested_ = false;
  loadTerminal(program_, notice);
  activateTerminal(*this);
}

void Terminal::handleKey(QChar key) {
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

void Terminal::enter() {
  program_.runMemory.enterTyped = true;
  const QString text = asciiUpper(trimBlanks(program_.console.inputlbl()));
  if (text.isEmpty())
    return;
  rememberWord(program_.inputHistory, text);
  runCommand(*this, text);
}

void Terminal::awaitEnter() {
  program_.runMemory.enterTyped = false;
  enterSeen_ = false;
  program_.services.waiting.until([this] { return enterSeen_; });
}

void Terminal::closeBox() {
  if (pane_.visible())
    pane_.close();
  else
    close();
}

void Terminal::close() {
  if (ended_)
    return;
  ended_ = true;
  program_.services.shutdown.request();
  cycle_.stop();
  stopProgram(program_);
  listener_.onStopped();
}

void Terminal::closeForUpdate() {
  updaterRequested_ = true;
  close();
  throw Unwind{};
}

} // namespace soran
