// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace soran {

/// Tells assistive technology of what came without the user's moving there: a notification among the
/// window's accessible children that comes up with each text. Nothing of it is painted.
class ReportAlert : public QWidget {
  Q_OBJECT
 public:
  ReportAlert(const QString& name, QWidget* window);

  /// The text told last, empty before the first.
  const QString& text() const { return text_; }

  /// Has screen readers speak `text`.
  void announce(const QString& text);

 private:
  QString text_;
};

} // namespace soran
