// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/version.h"

namespace soran {

constinit const QStringView programVersion = SORAN_VERSION;

} // namespace soran
