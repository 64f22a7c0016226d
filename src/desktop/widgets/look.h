// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>
#include <vector>

class QApplication;
class QFrame;
class QLabel;
class QBoxLayout;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace soran {

/// The colour for the window.
QColor toQColor(Colour colour);

/// The fixed-pitch family to use for `wanted`: itself where it is installed, else a Japanese fixed-pitch one,
/// else the system's.
QString installedFamily(const QString& wanted);

/// A font of the terminal.
QFont terminalFont(const QString& family, int points, bool bold = false);

/// One of the program's drawn icons by file name without its ending, such as "iconPic0".
QIcon drawnIcon(const QString& name);

/// A button's icon: `plain` at rest, `coloured` under the mouse.
QIcon facedIcon(const QString& plain, const QString& coloured);

/// The program's icon: with the network, or cut off from it.
QIcon programIcon(bool connected);

/// Dark ground and the terminal's font for all windows.
void dressApplication(QApplication& application);

/// Shows the program's icon and, large, its name.
void showProgramName(QLabel& icon, QLabel& name);

/// Adds a button with its tip to the bar of a form; Enter elsewhere does not press it.
QPushButton* addBarButton(QBoxLayout& bar, const QString& caption, const QString& tip);

/// Gives a frame or a line the dim colour of all frames; what stands in it keeps its own.
void drawFrameOf(QFrame& frame);

/// Gives a widget the ground and text colour of the terminal.
void paintLikeScreen(QWidget& widget, Colour ground, Colour text);

/// Adds the text in the colours of its runs, which stand in order and cover it.
void insertColoured(QPlainTextEdit& pane, const QString& text, const std::vector<AttributeRun>& runs);

} // namespace soran
