// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/foreign_text.h"

#include <QLoggingCategory>
#include <exception>

namespace soran {

/// Carries out one step of a sequence whose failing steps are passed over: what the step threw is logged
/// under `category` with `what`, and the sequence goes on. Only errors derived from std::exception are passed
/// over; the unwinding of a closed program is not one of them. True where the step succeeded.
template <class Step>
bool passOver(const QLoggingCategory& category, const char* what, Step&& step) {
  try {
    step();
    return true;
  } catch (const std::exception& e) {
    qCWarning(category).noquote() << "passed over:" << what << "-" << cleaned(QString::fromUtf8(e.what()));
    return false;
  }
}

} // namespace soran
