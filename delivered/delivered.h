// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/rows.h"

#include <QByteArray>
#include <QString>

/// What is compiled into the programs.
namespace soran::delivered {

/// The folder that an update endpoint serves under /data/, as an address.
QString updateAddress();

/// A compiled-in file by its path under /delivered; empty where there is none.
QByteArray file(const QString& path);

/// The names of the world's stations: code, tab, name, in UTF-8, each line ended by LF.
QByteArray stations();

/// The ends of the world's runways on land: code, tab, designator, tab, true bearing of the direction of
/// landing in degrees, in the order of the codes, each line ended by LF. As of 2013.
QByteArray runways();

/// The delivered rows of a two-column table.
QList<Airport> airports();
QList<DictionaryEntry> abbreviations();
QList<DictionaryEntry> phrases();

} // namespace soran::delivered
