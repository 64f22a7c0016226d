// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

namespace soran {

/// The update module: updates the program and starts it again, with what came of the update in its
/// environment. `arguments` is without the module's own name. Exit status 0 where the program is current, 1
/// where the update failed, 2 for unusable arguments.
int runModule(const QStringList& arguments, const QByteArray& publicKey);

} // namespace soran
