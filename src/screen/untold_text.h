// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// The lines of the screen's text `now` that one who was told `told` has not heard: all behind the lines that
/// both begin with, without blank lines and with LF line ends. A line that grew is told whole.
QString untoldText(QStringView told, QStringView now);

} // namespace soran
