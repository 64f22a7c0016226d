// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "targets.h"

namespace soran::fuzz {

struct Reader {
  std::string_view name; ///< of the folder in tests/corpus, too
  Target target;
};

inline constexpr Reader readers[] = {
    {"batch", batch},         {"colour", colour},     {"endpoints", endpoints}, {"exchange", exchange},
    {"explain", explain},     {"forecast", forecast}, {"imagery", imagery},     {"layout", layout},
    {"manifest", manifest},   {"picture", picture},   {"sequence", sequence},   {"session", session},
    {"translate", translate}, {"update", update},
};

} // namespace soran::fuzz
