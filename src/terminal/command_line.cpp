// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/command_line.h"

#include "base/text.h"
#include "terminal/view.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// A line on its way through the chain. The prefixes SQ and JP are cut off it as it passes.
struct Command {
  View& view;
  QString text;

  Program& program() const { return view.program(); }
  Console& console() const { return view.program().console; }

  /// Moves the screen to a fresh line and ends with the prompt and the colours.
  void prompt(const QString& lines) const {
    console().appendScreen(lines);
    console().showReady();
    console().colourScreenText();
  }
  void echoPrompt() const { prompt(crlf.toString()); }
  void log(const QString& message) const { console().addLogEntry(message); }
  void emptyPad() const { console().setPad(QString()); }
  void decode() const { view.decode().decodeRun(); }
};

/// A row of the chain: what it takes, whether it needs the network, and what it does.
struct Row {
  bool (*takes)(const Command&);
  bool needsNetwork;
  void (*run)(Command&);
};

template <char16_t... word>
bool is(const Command& command) {
  constexpr char16_t letters[] = {word..., u'\0'};
  return command.text == QStringView(letters);
}

const DictionaryEntry* entryOf(const QList<DictionaryEntry>& rows, const QString& word) {
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [&](const DictionaryEntry& row) { return row.abbreviation == word; });
  return found == rows.end() ? nullptr : &*found;
}

} // namespace

void runCommand(View& view, const QString& text) {
  Command command{view, text};
  (void)command;
}

} // namespace soran
