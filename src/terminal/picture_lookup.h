// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

namespace soran {

/// Shows the picture stored under the name in the form `pictureform`; nothing happens where there is none.
/// The bytes are handed over in the file data/figure.dat.
void showPictureOf(Program& program, QStringView name);

/// Takes the bytes that wait in data/figure.dat and deletes the file; empty where none wait.
QByteArray takePicture(const Services& services);

} // namespace soran
