// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/web/web_page.h"

#include <QFrame>
#include <memory>

namespace soran {

/// The browser pane `WebBrowser`, which stands in place of the screen.
class BrowserFrame : public QFrame {
  Q_OBJECT
 public:
  explicit BrowserFrame(QWidget* parent = nullptr);
  ~BrowserFrame() override;

  /// Goes to the address; one that is not allowed, or an engine that cannot be loaded, counts as a failure.
  void open(const QString& address);
  void stopPage();
  void back();
  /// The page gets the keys, beginning with this one (Qt::Key); nothing where there is no page.
  void takeKeys(int key);

 signals:
  void pageState(soran::WebPage::State state);
  void addressChanged(const QString& address);

 private:
  bool loadEngine();

  std::unique_ptr<WebPage> page_;
};

} // namespace soran
