// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QDialog>
#include <QTimer>
#include <memory>

namespace Ui {
class DataChangeForm;
}

namespace soran {

/// The form `datachange`: new reports have come. In the colours of the screen, above all windows, gone after
/// two ticks.
class DataChangeForm : public QDialog {
  Q_OBJECT
 public:
  static constexpr int lastTick = 2;

  DataChangeForm(QWidget* parent, Colour ground, Colour text);
  ~DataChangeForm() override;

  /// One tick of its timer, which ticks each second.
  void tick();

 private:
  std::unique_ptr<Ui::DataChangeForm> ui_;
  QTimer timer_;
  int ticks_ = 0;
};

} // namespace soran
