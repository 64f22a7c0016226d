// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <optional>

namespace soran {

/// Lines of a file descriptor, without a limit to their length.
class LineInput {
 public:
  explicit LineInput(int descriptor) : descriptor_(descriptor) {}

  /// The next line without its line end (LF or CR LF); nothing at the end of the input. Waits for it.
  std::optional<QByteArray> next();

  /// True where the next line can be had without waiting.
  bool isAtHand();

 private:
  bool readMore();

  int descriptor_;
  QByteArray buffer_;
  qsizetype begin_ = 0;
  qsizetype searched_ = 0;
  bool atEnd_ = false;
};

} // namespace soran
