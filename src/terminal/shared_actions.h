// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms.h"

#include <QString>

/// What a typed command and its entry in the menus do alike. None of them asks for the network.
namespace soran {

class View;

/// Echo and prompt, painted.
void echoPrompt(View& view);

/// The command that opens the editor of a list: it stops the cycle where that is wished, writes the log line
/// and shows the form until the user closes it.
void openListEditor(View& view, const QString& logLine, const ModalForm& form);
void openAirportList(View& view);
void openDecodeList(View& view);
void openGroupList(View& view);

/// The charts, behind the notice about PDF files where it is due. The program ends where the user left for
/// the download.
void openCharts(View& view);
void openCameras(View& view);
void openRunningLog(View& view);
void openHelp(View& view);

} // namespace soran
