// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/web/web_engine_page.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QQuickWindow>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>

// The program could also ask for this context before its window; it would cost the start of every run.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace soran {

namespace {

// The engine looks at the shared context even where it does not draw with it.
void provideSharedContext() {
  if (QOpenGLContext::globalShareContext())
    return;
  auto* context = new QOpenGLContext(QCoreApplication::instance());
  context->create();
  qt_gl_set_global_share_context(context);
}

// Pages of text need no graphics device, and without one none has to be set up before the program's window.
// Those with a dark face show it, as the window does.
void setEngineUp() {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QByteArray flags = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS");
  for (const char* flag : {"--disable-gpu", "--blink-settings=preferredColorScheme=0"}) {
    if (!flags.contains(flag))
      flags.append(' ').append(flag);
  }
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS", flags.trimmed());
}

void closeDoors(QWebEngineSettings& settings) {
  using Settings = QWebEngineSettings;
  for (const Settings::WebAttribute attribute :
       {Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
        Settings::JavascriptCanOpenWindows, Settings::JavascriptCanAccessClipboard,
        Settings::ScreenCaptureEnabled, Settings::FullScreenSupportEnabled})
    settings.setAttribute(attribute, false);
  // The only plugin that the engine knows is its own reader of PDF files, which runs in the sandbox too.
  settings.setAttribute(Settings::PluginsEnabled, true);
  settings.setAttribute(Settings::PdfViewerEnabled, true);
}

} // namespace

bool GuardedPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  // The engine's reader of PDF files is a page of its own inside the one that holds the file.
  const bool inner =
      url.scheme() == QLatin1String("about") || url.scheme() == QLatin1String("chrome-extension");
  return isAllowedPage(url) || (!isMainFrame && inner);
}

// A page that wants a window of its own is shown in this one.
QWebEnginePage* GuardedPage::createWindow(WebWindowType) {
  return this;
}

WebEnginePage::WebEnginePage(QWidget* parent) : page_(&profile_), view_(new QWebEngineView(parent)) {
  closeDoors(*profile_.settings());
  connect(&profile_, &QWebEngineProfile::downloadRequested, this,
          [](QWebEngineDownloadRequest* download) { download->cancel(); });
  view_->setPage(&page_);
  view_->setContextMenuPolicy(Qt::NoContextMenu);
  view_->setObjectName(QStringLiteral("webView"));
  view_->setAccessibleName(QStringLiteral("ウェブページ"));
  connect(&page_, &QWebEnginePage::loadStarted, this, [this] { onState(State::Started); });
  connect(&page_, &QWebEnginePage::loadFinished, this,
          [this](bool ok) { onState(ok ? State::Completed : State::Failed); });
  connect(&page_, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) { onAddress(url); });
  // A page whose process died is no page any more.
  connect(&page_, &QWebEnginePage::renderProcessTerminated, this, [this] { onState(State::Failed); });
}

WebEnginePage::~WebEnginePage() {
  if (view_)
    view_->setPage(nullptr);
}

void WebEnginePage::stop() {
  // The end of a page that is taken away is no news.
  const QSignalBlocker quiet(page_);
  view_->stop();
}

std::unique_ptr<WebPage> WebEngineFactory::make(QWidget* parent) {
  provideSharedContext();
  setEngineUp();
  return std::make_unique<WebEnginePage>(parent);
}

} // namespace soran
