// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/endpoint.h"
#include "platform/program_module.h"

#include <QtPlugin>
#include <memory>

namespace soran {

/// Sends bytes to an address of http or https, one request after the other.
class EventPost {
 public:
  EventPost() = default;
  virtual ~EventPost() = default;
  EventPost(const EventPost&) = delete;
  EventPost& operator=(const EventPost&) = delete;

  /// POSTs JSON. `ended` is called once, behind this call, with why the address did not take it, empty where
  /// it did. Redirects are not followed. Destroying the object ends the request without a word.
  virtual void post(const QUrl& address, const QByteArray& json, int limitMilliseconds,
                    std::function<void(const QString& why)> ended) = 0;
};

/// What the module soran-http offers: all that stands on Qt's network classes, whose libraries would take
/// every start of soran-cli a quarter longer, and which a demonstration and a webhook alone need.
class HttpParts {
 public:
  virtual ~HttpParts() = default;
  virtual std::unique_ptr<Endpoint> makeEndpoint() = 0;
  virtual std::unique_ptr<EventPost> makeEventPost() = 0;
};

} // namespace soran

#define SORAN_HTTP_PARTS "soran.HttpParts/1"
Q_DECLARE_INTERFACE(soran::HttpParts, SORAN_HTTP_PARTS)

namespace soran {

/// The module; null where it cannot be loaded, which the log tells.
inline HttpParts* httpParts() {
  return moduleOf<HttpParts>(QStringLiteral("soran-http"));
}

} // namespace soran
