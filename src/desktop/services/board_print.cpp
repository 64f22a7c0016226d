// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/board_print.h"

#include "base/text.h"
#include "desktop/services/print_page.h"
#include "desktop/widgets/look.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int pageColumns = 190;

} // namespace

void drawLines(QPainter& painter, const QRectF& area, const QStringList& lines) {
  constexpr double largestPoints = 11;
  constexpr double trialPoints = 10;
  QFont font = terminalFont(QString(), int(trialPoints));
  const QFontMetricsF metrics(font, painter.device());
  double widest = 1;
  for (const QString& line : lines)
    widest = std::max(widest, metrics.horizontalAdvance(line));
  const double height = metrics.lineSpacing() * double(std::max<qsizetype>(1, lines.size()));
  const double scale = std::min(area.width() / widest, area.height() / height) * 0.98;
  font.setPointSizeF(std::min(largestPoints, trialPoints * scale));
  painter.setFont(font);
  const double step = QFontMetricsF(font, painter.device()).lineSpacing();
  double y = area.top();
  for (const QString& line : lines) {
    painter.drawText(QRectF(area.left(), y, area.width(), step), Qt::AlignLeft | Qt::TextSingleLine, line);
    y += step;
  }
}

void printBoard(Program& program, const std::vector<BoardRow>& rows, const QString& title) {
  const std::optional<QString> name = printerForPage(program);
  if (!name)
    return;
  QPrinter printer;
  setUpPrinter(printer, *name);
  layLandscape(printer);
  QPainter painter;
  if (!painter.begin(&printer))
    return program.services.dialogs.message(u" 確認"_s, u"印刷できませんでした　　"_s);
  const QDateTime now = program.services.clock.now().toUTC();
  QStringList lines = {u"*** BOARD ***   SORAN   "_s + title + u"   " + now.toString(u"yyyy/MM/dd HH:mm"_s) +
                           u'Z' + (program.services.demonstration ? u"   " + demonstrationMark : QString()),
                       QString()};
  lines += boardText(rows, pageColumns, now).split(crlf.toString());
  drawLines(painter, QRectF(painter.viewport()), lines);
}

} // namespace soran
