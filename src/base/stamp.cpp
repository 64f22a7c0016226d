// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/stamp.h"

#include "base/text.h"

namespace soran {

Stamp Stamp::of(QStringView response) {
  Stamp stamp;
  stamp.text_ = trimBlanks(mid1(response, 12, 5)).toString();
  return stamp;
}

MinuteOfHour Stamp::minute() const {
  return MinuteOfHour::at(text_, 4);
}

} // namespace soran
