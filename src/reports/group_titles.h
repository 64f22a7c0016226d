// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// The wording of a group run. A group whose name is the last two letters of its first two stations is a
/// company route.
struct GroupTitles {
  QString title;   ///< of the run, without line end
  QString opening; ///< on the screen while the run goes on
  QString log;     ///< the log line of its start
};
GroupTitles groupTitles(QStringView groupName, QStringView list);

} // namespace soran
