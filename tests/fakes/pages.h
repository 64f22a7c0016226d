// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/pages.h"

#include <QStringList>

namespace soran {

/// Pages of which the addresses are kept, wherever they were to be shown.
class FakePages final : public Pages {
 public:
  QStringList seen;

  void openExternally(const QString& address) override { seen.append(address); }
  void openInPane(const QString& address) override { seen.append(address); }
  void closePane() override {}
};

} // namespace soran
