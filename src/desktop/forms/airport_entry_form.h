// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/airport_entry.h"

#include <QDialog>
#include <memory>

namespace Ui {
class AirportEntryForm;
}

namespace soran {

/// The dialog `airportedit`: code and name of one airport.
class AirportEntryForm : public QDialog {
  Q_OBJECT
 public:
  /// The entry outlives the form.
  AirportEntryForm(QWidget* parent, AirportEntry& entry);
  ~AirportEntryForm() override;

  void accept() override;
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void mirror();
  void checkCode();

  std::unique_ptr<Ui::AirportEntryForm> ui_;
  AirportEntry& entry_;
  bool codeLeft_ = false;
};

} // namespace soran
