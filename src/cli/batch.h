// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/line_input.h"

#include <QIODevice>

namespace soran {

/// Answers jobs, one a line, until the input ends. False where an answer could not be written; no further job
/// is looked at then.
bool runBatch(LineInput& input, QIODevice& output);

/// The answer to one line: {"id": ..., "result": ...} or {"id": ..., "error": "..."}.
QByteArray answerJob(const QByteArray& line);

} // namespace soran
