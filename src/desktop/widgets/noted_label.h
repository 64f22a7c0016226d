// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QLabel>
#include <functional>

namespace soran {

/// A label whose tip is made when it is asked for.
class NotedLabel : public QLabel {
 public:
  using QLabel::QLabel;

  void setNote(std::function<QString()> note) { note_ = std::move(note); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ToolTip && note_)
      setToolTip(note_());
    return QLabel::event(event);
  }

 private:
  std::function<QString()> note_;
};

} // namespace soran
