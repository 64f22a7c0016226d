// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/bare_program.h"
#include "forms/list_rules.h"
#include "start/opening.h"
#include "terminal/terminal.h"

#include <QTimer>

namespace soran {

/// One run of the program in a world, up to its terminal.
class ProgramRun : public BareProgram {
 public:
  using BareProgram::BareProgram;

  /// Start, load and first activation; true where the terminal then takes input.
  bool start() {
    result = opening.start();
    if (result != Opening::Result::Started)
      return false;
    terminal.guarded([this] { terminal.start(opening.notice()); });
    return !terminal.ended();
  }
  /// As start(), and what it wrote and asked is forgotten.
  bool begin() {
    const bool started = start();
    forget();
    return started;
  }

  void keys(const QString& characters) {
    for (const QChar c : characters)
      terminal.handleKey(c);
  }
  void type(const QString& line) { keys(line + u'\r'); }

  Opening opening{program};
  Terminal terminal{program};
  Opening::Result result = Opening::Result::NoDirectory;
};

} // namespace soran
