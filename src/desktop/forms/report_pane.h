// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

#include <QPlainTextEdit>

namespace soran {

/// The known reports of one airport, laid out and coloured as on the screen.
class ReportPane : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit ReportPane(QWidget* parent = nullptr);

  /// Empty for an empty code. What is the same stays as it is, scrolled as it was.
  void showReports(Program& program, const QString& code);

 private:
  QString shown_;
};

} // namespace soran
