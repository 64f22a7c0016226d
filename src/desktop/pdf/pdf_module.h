// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/pdf/pdf_reader.h"

#include <QObject>

namespace soran {

/// What the module offers to the program: documents by Qt PDF.
class PdfModule final : public QObject, public PdfReader {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID SORAN_PDF_READER)
  Q_INTERFACES(soran::PdfReader)
 public:
  QImage draw(const QByteArray& bytes, int largestSide) override;
};

} // namespace soran
