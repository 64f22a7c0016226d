// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractEventDispatcher>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <functional>

namespace soran {

/// Does something once, between two events, at the n-th turn of the event loop from now on.
class AtTurn {
 public:
  AtTurn(int turn, std::function<void()> act) : left_(turn), act_(std::move(act)) {
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &context_,
                     [this] { next(); });
  }
  /// Counts a place without a turn, such as an open question.
  void next() {
    if (--left_ == 0)
      QMetaObject::invokeMethod(&context_, act_, Qt::QueuedConnection);
  }
  /// False where the event loop did not turn that often.
  bool came() const { return left_ <= 0; }

 private:
  int left_;
  std::function<void()> act_;
  QObject context_;
};

/// The files below a folder with their bytes.
inline QMap<QString, QByteArray> filesBelow(const QString& folder) {
  QMap<QString, QByteArray> files;
  QDirIterator found(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (found.hasNext()) {
    QFile file(found.next());
    files.insert(file.fileName(), file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
  }
  return files;
}

} // namespace soran
