// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/proxies.h"

#include "platform/endpoints.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

QString variable(const QString& name) {
  const QString value = qEnvironmentVariable(name.toLatin1().constData());
  return value.isEmpty() ? qEnvironmentVariable(name.toUpper().toLatin1().constData()) : value;
}

/// no_proxy lists hosts, which stand for what lies below them too, or says "*".
bool isExcepted(const QString& host) {
  const QStringList entries = variable(u"no_proxy"_s).split(u',', Qt::SkipEmptyParts);
  return std::any_of(entries.begin(), entries.end(), [&host](const QString& entry) {
    QString name = entry.trimmed().toLower();
    if (name.startsWith(u'.'))
      name.remove(0, 1);
    return name == u"*" || host == name || (!name.isEmpty() && host.endsWith(u'.' + name));
  });
}

} // namespace

QUrl proxyFor(const QUrl& url) {
  if (isLoopback(url) || isExcepted(url.host(QUrl::FullyEncoded)))
    return {};
  QString named = variable(url.scheme() + u"_proxy");
  if (named.isEmpty())
    named = variable(u"all_proxy"_s);
  if (!named.isEmpty() && !named.contains(u"://"))
    named.prepend(u"http://");
  return QUrl(named);
}

} // namespace soran
