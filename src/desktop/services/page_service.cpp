// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/page_service.h"

#include "base/files.h"
#include "desktop/widgets/browser_frame.h"
#include "start/own_directory.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QUrl>

namespace soran {

namespace {

Q_LOGGING_CATEGORY(lcPages, "soran.desktop")

/// Lays the program's own pages out in the folder and gives the address of `page` there.
QUrl laidOut(const QUrl& page, const QString& folder) {
  const QDir source(u':' + QUrl(page).adjusted(QUrl::RemoveFilename).path());
  if (!makeScratchFolder(folder))
    return {};
  for (const QString& name : source.entryList(QDir::Files)) {
    QFile file(source.filePath(name));
    if (!file.open(QIODevice::ReadOnly) || !writeWhole(folder + u'/' + name, file.readAll(), true))
      return {};
  }
  return QUrl::fromLocalFile(folder + u'/' + page.fileName());
}

} // namespace

void PageService::openExternally(const QString& address) {
  QUrl url(address);
  if (isAllowedPage(url) && url.scheme() == u"qrc")
    url = laidOut(url, folder_);
  else if (!isAllowedPage(url))
    url.clear();
  if (url.isEmpty() || !QDesktopServices::openUrl(url))
    qCWarning(lcPages) << "passed over: opening the page" << address;
}

void PageService::openInPane(const QString& address) {
  if (pane_)
    pane_->open(address);
}

void PageService::goBack() {
  if (pane_)
    pane_->back();
}

void PageService::closePane() {
  if (pane_)
    pane_->stopPage();
}

} // namespace soran
