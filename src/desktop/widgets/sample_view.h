// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/settings_sample.h"

#include <QPlainTextEdit>

namespace soran {

/// A report in a font and in colours.
class SampleView : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit SampleView(QWidget* parent = nullptr);

  void showSample(const SettingsSample& sample);
  /// Scrolls to the top or to the end.
  void showTop(bool top);
};

} // namespace soran
