// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class OpeningForm;
}

namespace soran {

/// The form `opening`: the program's name while the start goes on. Closing it ends the program.
class OpeningForm : public QDialog {
  Q_OBJECT
 public:
  OpeningForm();
  ~OpeningForm() override;

  /// Shows it, unless the user has something to answer.
  void appear();

 protected:
  bool event(QEvent* event) override;

 private:
  std::unique_ptr<Ui::OpeningForm> ui_;
};

} // namespace soran
