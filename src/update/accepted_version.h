// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace soran {

/// The version that a file of the program's directory tells as the one accepted last; 0 where there is none.
double acceptedVersion(const QString& file);

/// Notes a version there. False where the file cannot be written.
bool acceptVersion(const QString& file, const QString& version);

/// The version that an update module tells in its own bytes, so that its signature covers it: the line that
/// it prints with --version. Empty where it has none.
QString moduleVersion(const QByteArray& module);

} // namespace soran
