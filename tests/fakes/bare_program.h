// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"
#include "fakes/services.h"
#include "runs/program.h"
#include "support/printing.h"

namespace soran {

/// What all parts of a run of the program share, over the fakes: no start, no terminal.
class BareProgram : public FakeServices {
 public:
  explicit BareProgram(World& given) : FakeServices(given), program(services()) {}

  QString screen() const { return program.console.screen().text(); }
  QString panel2() const { return program.console.status().panel2(); }
  /// The text appended since the last call; the whole screen where it was replaced.
  QString shown() {
    const QString text = screen();
    const QString added = text.startsWith(former_) ? text.mid(former_.size()) : text;
    former_ = text;
    return added;
  }
  /// The log lines since the last call, oldest first.
  QStringList logged() {
    QStringList lines;
    const auto& rows = program.console.log().rows();
    for (size_t i = 0; i < rows.size() - logSeen_; ++i)
      lines.prepend(rows[i].message);
    logSeen_ = rows.size();
    return lines;
  }
  /// Forgets what was written and asked so far.
  void forget() {
    shown();
    logged();
    asked();
    desk.takeSeen();
  }

  Program program;

 private:
  QString former_;
  size_t logSeen_ = 0;
};

} // namespace soran
