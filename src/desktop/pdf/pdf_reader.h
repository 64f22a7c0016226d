// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QtPlugin>

namespace soran {

/// Draws documents. What reads them lives in a module of its own, which is loaded at the first document.
class PdfReader {
 public:
  virtual ~PdfReader() = default;
  /// The first pages of a PDF below one another on white; a null image where it is none. A page is at most so
  /// many pixels wide or high.
  virtual QImage draw(const QByteArray& bytes, int largestSide) = 0;
};

} // namespace soran

#define SORAN_PDF_READER "soran.PdfReader/1"
Q_DECLARE_INTERFACE(soran::PdfReader, SORAN_PDF_READER)
