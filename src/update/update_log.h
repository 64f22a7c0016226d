// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// Tells the user of the module what it does: each line goes to standard error, and with the time to
/// update.log in the program's directory. A log that has grown too long begins anew.
class UpdateLog {
 public:
  explicit UpdateLog(const QString& home) : path_(home + QStringLiteral("/update.log")) {}
  void tell(const QString& line) const;

 private:
  QString path_;
};

} // namespace soran
