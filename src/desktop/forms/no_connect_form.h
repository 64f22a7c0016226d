// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class NoConnectForm;
}

namespace soran {

/// The form `noconnectmsg`: the start found no network.
class NoConnectForm : public QDialog {
  Q_OBJECT
 public:
  explicit NoConnectForm(QWidget* parent);
  ~NoConnectForm() override;

 private:
  std::unique_ptr<Ui::NoConnectForm> ui_;
};

} // namespace soran
