// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace soran {

/// Shows a picture as large as its place allows, and takes files that are dropped on it.
class PictureDrop : public QLabel {
  Q_OBJECT
 public:
  explicit PictureDrop(QWidget* parent = nullptr);

  /// Shows a picture file's content; a hint where it is none.
  void showPicture(const QByteArray& bytes);

 signals:
  void fileDropped(const QString& path);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fit();

  QPixmap picture_;
};

} // namespace soran
