// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/printer_service.h"

#include "desktop/services/print_page.h"
#include "desktop/widgets/look.h"

#include <QDateTime>
#include <QDir>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTextLayout>

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView pdfPrinter = u"PDF";
constexpr double marginMillimetres = 15;

/// One line of the text as the lines that it takes on paper, at least one.
void foldLine(const QString& line, const QFont& font, double width, QPaintDevice* device,
              QStringList& folded) {
  QTextLayout layout(line, font, device);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  bool any = false;
  for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
    part.setLineWidth(width);
    folded.append(line.mid(part.textStart(), part.textLength()));
    any = true;
  }
  layout.endLayout();
  if (!any)
    folded.append(QString());
}

} // namespace

QString pdfPath() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (folder.isEmpty() || !QDir().mkpath(folder))
    folder = QDir::tempPath();
  return folder + u"/SORAN-" + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s) + u".pdf";
}

std::vector<QStringList> printedPages(const QString& text, const QFont& font, const QSizeF& area,
                                      QPaintDevice* device) {
  QStringList folded;
  QString lines = text;
  lines.replace(u"\r\n"_s, u"\n"_s);
  for (const QString& line : lines.split(u'\n'))
    foldLine(line, font, area.width(), device, folded);
  const double pitch = QFontMetricsF(font, device).lineSpacing();
  const auto linesOfPage = std::max<qsizetype>(1, static_cast<qsizetype>(area.height() / pitch));
  std::vector<QStringList> pages;
  for (qsizetype i = 0; i < folded.size(); i += linesOfPage)
    pages.push_back(folded.mid(i, linesOfPage));
  return pages;
}

QStringList PrinterService::installed() const {
  QStringList names = QPrinterInfo::availablePrinterNames();
  const auto standard = std::ranges::find(names, QPrinterInfo::defaultPrinterName());
  if (standard != names.end())
    std::rotate(names.begin(), standard, standard + 1);
  if (names.isEmpty())
    names.append(pdfPrinter.toString());
  return names;
}

bool PrinterService::print(const PrintJob& job) {
  QPrinter printer(QPrinter::HighResolution);
  setUpPrinter(printer, job.printer);
  printer.setPageLayout(
      {QPageSize(QPageSize::A4), QPageLayout::Portrait,
       QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
       QPageLayout::Millimeter});
  QPainter painter;
  if (!painter.begin(&printer))
    return false;
  const QFont font = terminalFont(job.font, job.size, job.bold);
  painter.setFont(font);
  const QFontMetricsF metrics(font, &printer);
  QSizeF area = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  QStringList head;
  if (!mark.isEmpty())
    head = printedPages(mark, font, area, &printer).front() + QStringList{QString()};
  area.rheight() -= metrics.lineSpacing() * double(head.size());
  bool first = true;
  for (const QStringList& page : printedPages(job.text, font, area, &printer)) {
    if (!first && !printer.newPage())
      return false;
    first = false;
    double y = metrics.ascent();
    for (const QString& line : head + page) {
      painter.drawText(QPointF(0, y), line);
      y += metrics.lineSpacing();
    }
  }
  return painter.end();
}

} // namespace soran
