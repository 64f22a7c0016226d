// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/settings_form.h"

namespace soran {

class Terminal;

/// Ties the settings form to the terminal. The printers of the system are shown by the dialogue service.
SettingsFormHooks settingsHooks(Terminal& terminal);

} // namespace soran
