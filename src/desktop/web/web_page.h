// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <QtPlugin>
#include <functional>
#include <memory>

class QWidget;

namespace soran {

/// A web page in a widget. The engine behind it lives in a module of its own, which is loaded at the first
/// page.
class WebPage {
 public:
  enum class State { Started, Completed, Failed };

  virtual ~WebPage() = default;
  virtual QWidget* widget() = 0;
  virtual void open(const QUrl& url) = 0;
  virtual void stop() = 0;
  virtual void back() = 0;

  /// Called when a page begins to load and when it has loaded or failed.
  std::function<void(State)> onState = [](State) {};
  /// Called with the address of what is shown.
  std::function<void(const QUrl&)> onAddress = [](const QUrl&) {};
};

/// What the module offers.
class WebPageFactory {
 public:
  virtual ~WebPageFactory() = default;
  /// A page in `parent`.
  virtual std::unique_ptr<WebPage> make(QWidget* parent) = 0;
};

/// Which addresses a page may go to: http, https and the program's own help.
inline bool isAllowedPage(const QUrl& url) {
  if (!url.isValid())
    return false;
  if (url.scheme() == QLatin1String("qrc"))
    return url.path().startsWith(QLatin1String("/delivered/help/"));
  return (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https")) &&
         !url.host().isEmpty();
}

} // namespace soran

#define SORAN_WEB_PAGE_FACTORY "soran.WebPageFactory/1"
Q_DECLARE_INTERFACE(soran::WebPageFactory, SORAN_WEB_PAGE_FACTORY)
