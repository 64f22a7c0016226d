// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/print_page.h"

#include "desktop/services/printer_service.h"
#include "sun/sun_grid.h"

#include <QFontDatabase>
#include <QPrinter>
#include <QPrinterInfo>

namespace soran {

using namespace Qt::StringLiterals;

std::optional<QString> printerForPage(Program& program) {
  Services& services = program.services;
  const QStringList installed = services.printers.installed();
  const QString stored = program.settings()[key::プリンター].value_or(QString());
  const QString current =
      installed.contains(program.currentPrinter) ? program.currentPrinter : installed.value(0);
  std::optional<QString> choice = current;
  if (program.settings()[key::印刷時ダイアログ] == true) {
    choice = services.dialogs.choosePrinter(installed, stored == u"*" ? current : stored);
    services.shutdown.check();
  }
  if (!choice || !installed.contains(*choice))
    return std::nullopt;
  program.currentPrinter = *choice;
  return choice;
}

void setUpPrinter(QPrinter& printer, const QString& name) {
  if (QPrinterInfo::printerInfo(name).isNull()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdfPath());
  } else {
    printer.setPrinterName(name);
  }
  printer.setDocName(u"SORAN"_s);
}

void layLandscape(QPrinter& printer) {
  constexpr double margin = 5; // millimetres
  printer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape,
                         QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter});
}

QString proportionalFamily() {
  for (const QString& family : {sunPrintFont.toString(), u"MS PGothic"_s, u"IPA Pゴシック"_s, u"IPAPGothic"_s,
                                u"Noto Sans CJK JP"_s}) {
    if (QFontDatabase::hasFamily(family))
      return family;
  }
  return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

} // namespace soran
