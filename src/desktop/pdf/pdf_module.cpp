// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/pdf/pdf_module.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfDocument>
#include <algorithm>

namespace soran {

namespace {

/// A chart has one page; what has many is no chart, and would fill the memory.
constexpr int mostPages = 4;

QImage pageOf(QPdfDocument& document, int number, int largestSide) {
  const QSizeF points = document.pagePointSize(number);
  if (points.isEmpty())
    return QImage();
  const QSize size =
      points.scaled(largestSide, largestSide, Qt::KeepAspectRatio).toSize().expandedTo(QSize(1, 1));
  const QImage drawn = document.render(number, size);
  QImage page(size, QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter(&page).drawImage(0, 0, drawn);
  return drawn.isNull() ? QImage() : page;
}

} // namespace

QImage PdfModule::draw(const QByteArray& bytes, int largestSide) {
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QPdfDocument document;
  document.load(&buffer);
  if (document.status() != QPdfDocument::Status::Ready)
    return QImage();
  QList<QImage> pages;
  QSize whole;
  for (int number = 0; number < std::min(mostPages, document.pageCount()); ++number) {
    const QImage page = pageOf(document, number, largestSide);
    if (page.isNull())
      continue;
    pages.append(page);
    whole = QSize(std::max(whole.width(), page.width()), whole.height() + page.height());
  }
  if (pages.size() < 2)
    return pages.value(0);
  QImage all(whole, QImage::Format_RGB32);
  all.fill(Qt::white);
  QPainter painter(&all);
  int top = 0;
  for (const QImage& page : std::as_const(pages)) {
    painter.drawImage(0, top, page);
    top += page.height();
  }
  return all;
}

} // namespace soran
