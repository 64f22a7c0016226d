// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/http_parts.h"

#include <QObject>

namespace soran {

/// What the module offers to the programs.
class HttpModule final : public QObject, public HttpParts {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID SORAN_HTTP_PARTS)
  Q_INTERFACES(soran::HttpParts)
 public:
  std::unique_ptr<Endpoint> makeEndpoint() override;
  std::unique_ptr<EventPost> makeEventPost() override;
};

} // namespace soran
