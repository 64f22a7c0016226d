// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace soran {

/// The table that the form `weather` edits.
enum class DictionaryMode { Abbreviations, Phrases, Pictures };

} // namespace soran
