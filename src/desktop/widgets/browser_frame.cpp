// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/browser_frame.h"

#include "platform/program_module.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QVBoxLayout>
#include <unistd.h>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcBrowser, "soran.module")

/// The engine ends the whole process where it is to run its sandbox for the superuser.
bool engineWouldAbort() {
  return geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX");
}

} // namespace

BrowserFrame::BrowserFrame(QWidget* parent) : QFrame(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
}

BrowserFrame::~BrowserFrame() = default;

bool BrowserFrame::loadEngine() {
  if (page_)
    return true;
  if (engineWouldAbort()) {
    qCWarning(lcBrowser) << "passed over: web pages for the superuser";
    return false;
  }
  auto* factory = moduleOf<WebPageFactory>(u"soran-web"_s);
  if (!factory)
    return false;
  page_ = factory->make(this);
  page_->onState = [this](WebPage::State state) { emit pageState(state); };
  page_->onAddress = [this](const QUrl& url) { emit addressChanged(url.toString()); };
  layout()->addWidget(page_->widget());
  return true;
}

void BrowserFrame::open(const QString& address) {
  const QUrl url = QUrl::fromUserInput(address);
  if (isAllowedPage(url) && loadEngine()) {
    emit addressChanged(url.toString());
    page_->open(url);
  } else {
    emit pageState(WebPage::State::Failed);
  }
}

void BrowserFrame::stopPage() {
  if (page_)
    page_->stop();
}

void BrowserFrame::takeKeys(int key) {
  if (!page_)
    return;
  QWidget* widget = page_->widget();
  widget->setFocus();
  QWidget* target = widget->focusProxy() ? widget->focusProxy() : widget;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
  }
}

void BrowserFrame::back() {
  if (page_)
    page_->back();
}

} // namespace soran
