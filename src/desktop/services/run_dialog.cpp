// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/run_dialog.h"

#include "desktop/widgets/fit_to_screen.h"

namespace soran {

int runDialog(QDialog& dialog, const Shutdown& shutdown) {
  if (shutdown.requested())
    return QDialog::Rejected;
  QObject::connect(&shutdown, &Shutdown::closing, &dialog, &QDialog::reject);
  fitToScreen(dialog);
  return dialog.exec();
}

} // namespace soran
