// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class AdobeForm;
}

namespace soran {

/// The form `adobeinfo`: the notice ahead of the charts that some are PDF files.
class AdobeForm : public QDialog {
  Q_OBJECT
 public:
  explicit AdobeForm(QWidget* parent);
  ~AdobeForm() override;

  void done(int result) override;

  /// How the user closed it; nothing where the program did.
  std::optional<form::PdfNotice::Outcome> outcome() const { return outcome_; }

 private:
  std::unique_ptr<Ui::AdobeForm> ui_;
  std::optional<form::PdfNotice::Outcome> outcome_;
  bool banner_ = false;
};

} // namespace soran
