// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stdexcept>

namespace soran {

/// The update cannot go on; nothing of the program was changed. `what` is the reason as UTF-8, made for the
/// user.
class UpdateError : public std::runtime_error {
 public:
  explicit UpdateError(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

} // namespace soran
