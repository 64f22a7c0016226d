// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

#include <QString>
#include <optional>

class QPrinter;

namespace soran {

/// The printer for a drawn page: that of the settings and of the last choice, or, where the settings ask for
/// the dialogue, the user's choice. Nothing where the user cancelled or there is none. Throws Unwind where
/// the program was closed meanwhile.
std::optional<QString> printerForPage(Program& program);

/// Directs the output to an installed printer; one of another name writes a PDF into the user's documents.
void setUpPrinter(QPrinter& printer, const QString& name);

/// One A4 page in landscape with narrow margins.
void layLandscape(QPrinter& printer);

/// The proportional Japanese family for printed pages.
QString proportionalFamily();

} // namespace soran
