// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

struct Program;

/// Asks for the SIGMETs of the Fukuoka flight information region and lists those in force or to come, each
/// with its validity and the airports of the automatic list that lie in its area. Waits in the event loop;
/// throws Unwind where the program was closed.
QString sigmetList(Program& program);

} // namespace soran
