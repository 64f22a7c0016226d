// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sun/sun_time_model.h"
#include "terminal/terminal.h"

#include <QDialog>
#include <memory>

class QPrinter;

namespace Ui {
class SunTimeForm;
}

namespace soran {

class SunTableModel;

/// The form `suntime`: sunrise and sunset of a field and a year as a table and as a graph, and their print.
class SunTimeForm : public QDialog {
  Q_OBJECT
 public:
  /// `view` outlives the form.
  SunTimeForm(QWidget* parent, Terminal& terminal);
  ~SunTimeForm() override;

  /// Prints the tab in front on one page, in landscape; false where the printer failed.
  bool print(QPrinter& printer);

 private:
  void select();
  void showTab();
  void showTable();
  void fitColumns();
  void printByButton();

  Terminal& terminal_;
  SunTimeModel model_;
  std::unique_ptr<Ui::SunTimeForm> ui_;
  SunTableModel* table_ = nullptr;
};

} // namespace soran
