// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "store/settings_record.h"

#include <QStringView>
#include <span>
#include <vector>

namespace soran {

/// Colours the text of the screen as a pilot reads it: weather (WMO No. 306, code table 4678) in one colour,
/// special and corrected reports in another, CB and TCU bold and red, ceilings, visibilities and runway
/// visual ranges below the limits of the settings in the limit's colour (feet, metres). It knows no grammar
/// of reports: every rule is a substring scan of the whole text, a later paint stands over an earlier one,
/// and the last rules give the colour of the text back to words that were hit by chance.
///
/// `displayedCodes` holds the stations shown so far, separated by blanks and with a blank at both ends;
/// `groupName` is the caption of the group chosen last, or empty. Both are never coloured.
///
/// `before` tells the attributes with which the text was written, for what no rule paints. A stretch that it
/// leaves out, so the whole text where it is empty, is in 表示文字の色 and not bold.
///
/// The runs stand in order, cover the text (UTF-16 units, from 0) and are as long as possible; an empty text
/// has none. A colour that the settings lack is not painted, a limit that they lack is never undercut. The
/// cost grows in line with the text. Never fails.
std::vector<AttributeRun> colourRuns(QStringView text, const SettingsRecord& settings,
                                     QStringView displayedCodes, QStringView groupName,
                                     std::span<const AttributeRun> before = {});

} // namespace soran
