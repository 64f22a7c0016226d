// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"

#include <QProcessEnvironment>
#include <QStringList>

namespace soran {

/// Where the update module runs.
enum class HandOver {
  Beside,  ///< beside this program, which ends
  InPlace, ///< in the place of this program, whose terminal it keeps for the program that starts again
};

/// Environment variables by which the program tells the update module, which gets no arguments, what to
/// replace and whom to ask ...
inline constexpr const char* handOverProgram = "SORAN_PROGRAM";
inline constexpr const char* handOverEndpoints = "SORAN_ENDPOINTS";
inline constexpr const char* handOverInPlace = "SORAN_IN_PLACE";
/// ... and the module tells the program that it starts again what came of the update: "done" or "failed".
inline constexpr const char* updateOutcome = "SORAN_UPDATE_OUTCOME";

/// What came of the update out of which this program was started; empty where it was started otherwise.
QString outcomeOfUpdate();

/// Starts the update module of the program's directory, which waits for this program to end. Called last,
/// when everything is closed. Nothing is started, and false told, where the module may not be run; in place
/// this returns at a failure only. `endpointsFile` is the file that this run was given, empty where none.
bool handOver(const Services& services, const QString& endpointsFile, HandOver where = HandOver::Beside);

/// Starts a program with this environment as `where` tells; false where it cannot be started. Beside this one
/// it works in `folder`, empty for the folder in which this one works.
bool startProgram(const QString& program, const QStringList& arguments,
                  const QProcessEnvironment& environment, HandOver where, const QString& folder = {});

} // namespace soran
