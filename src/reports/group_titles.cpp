// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/group_titles.h"

#include "base/text.h"

namespace soran {

GroupTitles groupTitles(QStringView groupName, QStringView list) {
  const bool companyRoute = groupName.size() == 4 && mid1(groupName, 1, 2) == mid1(list, 3, 2) &&
                            mid1(groupName, 3, 2) == mid1(list, 8, 2);
  if (companyRoute)
    return {u"*** " + mid1(list, 1, 4).toString() + u" - " + mid1(list, 6, 4).toString() +
                u" COMPANY ROUTINE ROUTE OBSERVATION AND FORECASTS ***",
            QStringLiteral("COMPANY ROUTINE ROUTE"),
            u"GROUP " + groupName.toString() + u" DECODE SEQUENCE START"};
  return {u"*** " + groupName.toString() + u" - GROUP FORMAT OBSERVATION AND FORECASTS ***",
          QStringLiteral("GROUP FORMAT"), u"FORMAT " + groupName.toString() + u" DECODE SEQUENCE START"};
}

} // namespace soran
