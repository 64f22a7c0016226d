// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>

namespace Ui {
class MessageForm;
}

namespace soran {

/// The form `message`: the network was lost. It stands above all windows, its line flashes, and it goes by
/// itself after 180 ticks.
class MessageForm : public QDialog {
  Q_OBJECT
 public:
  static constexpr int lastTick = 180;

  explicit MessageForm(QWidget* parent);
  ~MessageForm() override;

  /// One tick of its timer, which ticks each second.
  void tick();

 private:
  std::unique_ptr<Ui::MessageForm> ui_;
  QTimer timer_;
  int ticks_ = 0;
};

} // namespace soran
