// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

namespace soran {

/// What the program leaves behind itself: no transfer and no page, the exit counted, no scratch folder, the
/// database closed, now and then compacted, and copied once a day. A step that fails is passed over.
void stopProgram(Program& program);

} // namespace soran
