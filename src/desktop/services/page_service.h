// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/pages.h"

namespace soran {

class BrowserFrame;

/// Pages in the window's pane and in the system's browser.
class PageService final : public Pages {
 public:
  /// `folder` is where help pages are laid out for the system's browser, which cannot look into the program.
  explicit PageService(QString folder) : folder_(std::move(folder)) {}

  /// The pane; none is there before the window.
  void setPane(BrowserFrame* pane) { pane_ = pane; }

  void openExternally(const QString& address) override;
  void openInPane(const QString& address) override;
  void goBack() override;
  void closePane() override;

 private:
  QString folder_;
  BrowserFrame* pane_ = nullptr;
};

} // namespace soran
