// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/task_icon.h"

#include "desktop/widgets/look.h"

namespace soran {

using namespace Qt::StringLiterals;

TaskIcon::TaskIcon(bool connected) {
  icon_.setIcon(programIcon(connected));
  icon_.setToolTip(connected ? u"SORAN"_s : u"接続断"_s);
  connect(&icon_, &QSystemTrayIcon::activated, this, &TaskIcon::restoreRequested);
  icon_.show();
}

} // namespace soran
