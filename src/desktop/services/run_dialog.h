// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shutdown.h"

#include <QDialog>

namespace soran {

/// Holds everything until the user has closed the dialogue, and returns its result. It ends as rejected, or
/// does not even open, once the program closes.
int runDialog(QDialog& dialog, const Shutdown& shutdown);

} // namespace soran
