// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/dialogs.h"
#include "platform/shutdown.h"

#include <QPointer>
#include <QWidget>
#include <functional>

namespace soran {

/// Messages and questions as boxes over the window in use. Each ends as cancelled when the program closes.
class DialogService final : public Dialogs {
 public:
  explicit DialogService(const Shutdown& shutdown) : shutdown_(shutdown) {}

  /// The window over which boxes stand.
  void setWindow(QWidget* window) { window_ = window; }

  /// What makes that window, if it can, where a box is to stand over it before it is there.
  void setWindowMaker(std::function<void()> make) { makeWindow_ = std::move(make); }

  bool question(const QString& title, const QString& text) override;
  void message(const QString& title, const QString& text) override;
  std::optional<QString> openFile(const QString& title) override;
  std::optional<QString> saveFile(const QString& title, const QString& suggestion) override;
  std::optional<QString> choosePrinter(const QStringList& printers, const QString& current) override;

 private:
  QWidget* owner();

  const Shutdown& shutdown_;
  QPointer<QWidget> window_;
  std::function<void()> makeWindow_;
};

} // namespace soran
