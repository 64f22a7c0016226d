// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/sample_view.h"

#include "desktop/widgets/look.h"

#include <QScrollBar>

namespace soran {

SampleView::SampleView(QWidget* parent) : QPlainTextEdit(parent) {
  constexpr int shownLines = 8;
  constexpr int shownCharacters = 60;
  setReadOnly(true);
  setTextInteractionFlags(Qt::NoTextInteraction);
  setFocusPolicy(Qt::NoFocus);
  setLineWrapMode(NoWrap);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMinimumSize(fontMetrics().horizontalAdvance(u'0') * shownCharacters,
                 fontMetrics().height() * shownLines);
}

void SampleView::showSample(const SettingsSample& sample) {
  paintLikeScreen(*this, sample.background, sample.runs.empty() ? black : sample.runs.front().colour);
  setFont(terminalFont(sample.font, std::max(sample.size, 1), sample.bold));
  const int place = verticalScrollBar()->value();
  clear();
  insertColoured(*this, sample.text, sample.runs);
  setVerticalScrollBarPolicy(sample.scrollBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  verticalScrollBar()->setValue(place);
}

void SampleView::showTop(bool top) {
  QScrollBar& bar = *verticalScrollBar();
  bar.setValue(top ? bar.minimum() : bar.maximum());
}

} // namespace soran
