// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QDialog;

namespace soran {

/// True where a program says where its windows stand, above which others, and hears that they were minimised.
/// Under Wayland all of this is the compositor's.
bool platformLetsPlaceWindows();

/// Makes the form a note without a frame that stands where the program moved it, takes no keys, and lies
/// above all windows, or at least above the one that it belongs to. Before it is first shown.
void floatAboveWindows(QDialog& form);

} // namespace soran
