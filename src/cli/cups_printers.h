// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/printers.h"

namespace soran {

/// The printers of CUPS by its own programs; none where these are not installed.
class CupsPrinters final : public Printers {
 public:
  QStringList installed() const override;
  bool print(const PrintJob& job) override;
};

} // namespace soran
