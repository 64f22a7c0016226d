// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <functional>

namespace soran {

/// The families of the system, those of fixed pitch first. `slow` is called once where a system with many
/// fonts lets the user wait.
QStringList fontNames(const std::function<void()>& slow);

} // namespace soran
