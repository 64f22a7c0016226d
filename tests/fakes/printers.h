// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/printers.h"

#include <QList>

namespace soran {

/// Printers that keep their jobs.
class FakePrinters final : public Printers {
 public:
  QList<PrintJob> seen;
  QStringList names;

  QStringList installed() const override { return names; }
  bool print(const PrintJob& job) override {
    seen.append(job);
    return true;
  }
};

} // namespace soran
