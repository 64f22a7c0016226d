// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>
#include <utility>

namespace soran {

/// What an endpoint answers to a request.
struct Answer {
  QByteArray body = {};
  int status = 200;
  QByteArray contentType = "text/plain; charset=utf-8";
  QList<std::pair<QByteArray, QByteArray>> headers = {}; ///< further header lines, such as Location
};

/// An HTTP endpoint on loopback inside the process. It runs by the event loop of its thread, so a client that
/// waits in a nested event loop of the same thread is served. Paths are compared percent-decoded. A path that
/// nothing answers gets an HTML page with status 404.
class Endpoint {
 public:
  /// Answers the address of a request; nothing for an unknown one.
  using Handler = std::function<std::optional<Answer>(const QUrl& url)>;

  Endpoint() = default;
  virtual ~Endpoint() = default;
  Endpoint(const Endpoint&) = delete;
  Endpoint& operator=(const Endpoint&) = delete;

  /// Listens on a free port, or again on the one that it had before. False where that fails.
  virtual bool start() = 0;

  /// "http://127.0.0.1:PORT", without a trailing slash.
  virtual QString baseAddress() const = 0;

  /// The answer to one path. It goes before a handler.
  virtual void setAnswer(const QString& path, const Answer& answer) = 0;

  /// A file with status 200 under one path.
  void setFile(const QString& path, const QByteArray& bytes) { setAnswer(path, {.body = bytes}); }

  /// What answers the paths that begin with `prefix`; of several prefixes the longest counts.
  virtual void setHandler(const QString& prefix, const Handler& handler) = 0;
};

} // namespace soran
