// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/log_model.h"

#include <QDialog>
#include <memory>

namespace Ui {
class LogForm;
}

namespace soran {

/// The form `log`: the running log. Closing hides it.
class LogForm : public QDialog {
  Q_OBJECT
 public:
  LogForm(QWidget* parent, const RunningLog& log, std::function<Colour()> speciColour);
  ~LogForm() override;

 private:
  std::unique_ptr<Ui::LogForm> ui_;
};

} // namespace soran
