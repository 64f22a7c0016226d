// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/sigmet.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace soran {

struct Program;

/// The SIGMETs of the Fukuoka flight information region as they were last asked for.
struct KnownSigmets {
  QDateTime asked = {};                      ///< UTC; invalid where never
  std::optional<QList<Sigmet>> sigmets = {}; ///< nothing where they are not known
};

/// Asks for them once in ten minutes at most. Waits in the event loop; throws Unwind where the program was
/// closed.
void refreshSigmets(Program& program);

/// The names ("M02") of those in force in whose area the field of that code lies.
QStringList sigmetsOver(const Program& program, const QString& code);

/// Asks for the SIGMETs of the Fukuoka flight information region and lists those in force or to come, each
/// with its validity and the airports of the automatic list that lie in its area. Waits in the event loop;
/// throws Unwind where the program was closed.
QString sigmetList(Program& program);

} // namespace soran
