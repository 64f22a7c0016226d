// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace soran {

/// The built-in version, four characters such as "4.31". It is told once, in the project's CMakeLists.txt.
extern const QStringView programVersion;

} // namespace soran
