// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/picture_drop.h"

#include <QDropEvent>
#include <QMimeData>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString localFile(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.isEmpty() ? QString() : urls.constFirst().toLocalFile();
}

} // namespace

PictureDrop::PictureDrop(QWidget* parent) : QLabel(parent) {
  constexpr int shownCharacters = 40;
  setAcceptDrops(true);
  setAlignment(Qt::AlignCenter);
  setFrameShape(QFrame::Box);
  setWordWrap(true);
  // The picture follows its place, not the place the picture.
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * shownCharacters);
}

void PictureDrop::showPicture(const QByteArray& bytes) {
  picture_ = QPixmap();
  picture_.loadFromData(bytes);
  fit();
}

void PictureDrop::fit() {
  if (picture_.isNull()) {
    setText(u"画像ファイルをここにドロップ"_s);
    return;
  }
  const double ratio = devicePixelRatioF();
  const QSize place = contentsRect().size() * ratio;
  // A small picture keeps its size.
  const QSize size = (picture_.size() * ratio).boundedTo(place);
  QPixmap shown = picture_.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  shown.setDevicePixelRatio(ratio);
  setPixmap(shown);
}

void PictureDrop::dragEnterEvent(QDragEnterEvent* event) {
  if (!localFile(*event->mimeData()).isEmpty())
    event->acceptProposedAction();
}

void PictureDrop::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  emit fileDropped(localFile(*event->mimeData()));
}

void PictureDrop::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (!picture_.isNull())
    fit();
}

} // namespace soran
