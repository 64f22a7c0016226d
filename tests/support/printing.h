// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>
#include <ostream>

// GoogleTest prints text as text, with line ends as they are written in code.
inline void PrintTo(QStringView text, std::ostream* out) {
  QString shown = text.toString();
  shown.replace(QLatin1Char('\r'), QLatin1String("\\r")).replace(QLatin1Char('\n'), QLatin1String("\\n"));
  *out << '"' << shown.toStdString() << '"';
}
inline void PrintTo(const QString& text, std::ostream* out) {
  PrintTo(QStringView(text), out);
}
