// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/report_pane.h"

#include "desktop/widgets/look.h"
#include "reports/colouring.h"
#include "runs/last_known.h"

namespace soran {

using namespace Qt::StringLiterals;

ReportPane::ReportPane(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTabChangesFocus(true);
  setAccessibleName(u"選択した飛行場の通報"_s);
}

void ReportPane::showReports(Program& program, const QString& code) {
  const QString text = code.isEmpty() ? QString() : knownReportText(program, code);
  if (text == shown_)
    return;
  shown_ = text;
  clear();
  const QString names = u' ' + code + u' ';
  insertColoured(*this, text, colourRuns(text, program.record(), names, {}));
}

} // namespace soran
