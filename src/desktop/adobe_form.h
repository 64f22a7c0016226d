// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imagery/adobe_notice.h"

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class AdobeForm;
}

namespace soran {

/// The form `adobeinfo`: the notice ahead of the charts that some are PDF files.
class AdobeForm : public QDialog {
  Q_OBJECT
 public:
  /// `answered` is told how the user closed it.
  AdobeForm(QWidget* parent, std::function<void(AdobeNoticeAnswer)> answered);
  ~AdobeForm() override;

  void done(int result) override;

 private:
  std::unique_ptr<Ui::AdobeForm> ui_;
  std::function<void(AdobeNoticeAnswer)> answered_;
  bool banner_ = false;
};

} // namespace soran
