// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/printers.h"

#include <QFont>
#include <QSizeF>
#include <QStringList>
#include <vector>

class QPaintDevice;

namespace soran {

/// The printers of the system, its standard one first. A system without any offers one named PDF, which
/// writes a file into the user's documents.
class PrinterService final : public Printers {
 public:
  QString mark = {}; ///< ahead of each page of text; nothing where it is empty

  QStringList installed() const override;
  bool print(const PrintJob& job) override;
};

/// A new file in the user's documents for what is printed without a printer.
QString pdfPath();

/// The text broken into lines that fit `width` and pages that hold `height`, in the units of `device`. A page
/// ends between lines only.
std::vector<QStringList> printedPages(const QString& text, const QFont& font, const QSizeF& area,
                                      QPaintDevice* device);

} // namespace soran
