// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace soran {

/// Text for the printer, A4 upright.
struct PrintJob {
  QString printer; ///< name of an installed printer
  QString text;    ///< lines with CR LF or LF
  QString font;    ///< family, fixed-pitch
  int size = 11;   ///< points
  bool bold = false;
};

/// The printers of the system.
class Printers {
 public:
  virtual ~Printers() = default;
  virtual QStringList installed() const = 0;

  /// Prints the job; false where the printer failed.
  virtual bool print(const PrintJob& job) = 0;
};

} // namespace soran
