// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace soran {

/// What the next or the present run is. The names are those of the log and of the operating manual.
struct RunFlags {
  bool autoMode = false;          ///< the run walks the automatic decode list
  bool groupMode = false;         ///< the run was started by a group
  bool fullLoad = false;          ///< the next run is the first load of a list
  bool changeRun = false;         ///< the run was started by the cycle and may announce
  bool sequenceRequested = false; ///< an SQ run
  bool japaneseRequested = false; ///< a JP run
  bool typedRun = false;          ///< the run comes from the Enter key
  bool readyGap = false;          ///< the next prompt ends with a line end of its own
};

} // namespace soran
