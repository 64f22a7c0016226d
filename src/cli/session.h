// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/headless.h"
#include "cli/line_input.h"
#include "cli/standard_stream.h"
#include "start/launch.h"
#include "store/json_fields.h"
#include "terminal/terminal.h"

#include <QIODevice>

namespace soran {

/// The program driven by events, one a line, that tells its state, one a line, both JSON.
class Session final : private Waiting {
 public:
  Session(const LaunchOptions& options, DeliveredFile delivered, LineInput& input, QIODevice& output,
          bool runs);
  ~Session() override;

  /// Runs from the start to the end of the input or of the program. The exit status: 0, 1 where the start
  /// ended at once, or 4 where a line could not be written, which ends the program.
  int run();

 private:
  void until(const std::function<bool()>& done) override;
  bool handleNextLine();
  void handle(Fields event);
  void type(const QString& characters);
  void tick(int seconds);
  void write(const QJsonObject& line);
  void writeState() { write(state()); }
  QJsonObject state();
  QJsonArray rowsOf(const QString& table);
  void rewrite(Fields& event);
  void rewriteLimits(Fields& event);
  void setSettings(const QJsonObject& values);
  void choose(const QString& name, std::optional<int> index);
  int endedAtOnce();
  int status() const { return isLost_ ? outputLost : 0; }

  LineInput& input_;
  QIODevice& output_;
  bool withRuns_;
  SteppedTimers timers_;
  Launch launch_;
  Headless headless_;
  Program program_;
  Terminal terminal_;
  int event_ = 0;
  bool atEnd_ = false;
  bool isLost_ = false; // a line of the output
  QJsonArray requests_;
  std::optional<QJsonArray> rows_;
  std::optional<QString> tip_;
};

} // namespace soran
