// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QUrl>

namespace soran {

/// The proxy that the environment names for an address (https_proxy, http_proxy, all_proxy, in capitals too),
/// an address itself. Empty where it names none, where no_proxy excepts the host, and for loopback.
QUrl proxyFor(const QUrl& url);

} // namespace soran
