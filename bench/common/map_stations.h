// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/map_drawing.h"

namespace soran::bench {

/// So many stations over the whole earth, a quarter of them about Japan, with reports good and bad.
std::vector<MapStation> stationsOfTheWorld(int count);

} // namespace soran::bench
