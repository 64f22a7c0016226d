// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/station_code.h"

namespace soran {

std::vector<StationCode> codesOf(QStringView codeList) {
  constexpr qsizetype length = 4;
  std::vector<StationCode> codes;
  for (qsizetype index = 0; index < codeList.size(); index += length + 1)
    codes.emplace_back(codeList.mid(index, length).toString());
  return codes;
}

} // namespace soran
