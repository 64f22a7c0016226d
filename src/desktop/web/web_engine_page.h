// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/web/web_page.h"

#include <QObject>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

namespace soran {

/// A page that goes only where it is allowed to, and opens no second window.
class GuardedPage : public QWebEnginePage {
  Q_OBJECT
 public:
  using QWebEnginePage::QWebEnginePage;

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage* createWindow(WebWindowType type) override;
};

/// A page by Qt WebEngine: it remembers nothing and stores nothing.
class WebEnginePage final : public QObject, public WebPage {
  Q_OBJECT
 public:
  explicit WebEnginePage(QWidget* parent);
  ~WebEnginePage() override;

  QWidget* widget() override { return view_; }
  void open(const QUrl& url) override { view_->load(url); }
  void stop() override;
  void back() override { view_->back(); }

 private:
  QWebEngineProfile profile_; // outlives the page
  GuardedPage page_;
  QPointer<QWebEngineView> view_;
};

/// What the module offers to the program.
class WebEngineFactory final : public QObject, public WebPageFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID SORAN_WEB_PAGE_FACTORY)
  Q_INTERFACES(soran::WebPageFactory)
 public:
  std::unique_ptr<WebPage> make(QWidget* parent) override;
};

} // namespace soran
