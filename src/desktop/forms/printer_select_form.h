// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/printer_selection.h"

#include <QDialog>
#include <memory>

namespace Ui {
class PrinterSelectForm;
}

namespace soran {

/// The form `printerselect`: one of the installed printers. Accepted where the user took one.
class PrinterSelectForm : public QDialog {
  Q_OBJECT
 public:
  /// The selection outlives the form.
  PrinterSelectForm(QWidget* parent, PrinterSelection& selection);
  ~PrinterSelectForm() override;

 private:
  std::unique_ptr<Ui::PrinterSelectForm> ui_;
};

} // namespace soran
