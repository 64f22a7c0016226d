// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace soran {

/// Lets the content of a dialogue scroll where even its least size is larger than the screen, so that nothing
/// of it lies out of reach; leaves all others as they are. To be called before it is shown.
void fitToScreen(QDialog& dialog);

} // namespace soran
