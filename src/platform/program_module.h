// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace soran {

/// What one of the program's own modules (soran-http, soran-web, soran-pdf) offers, loaded at the first call;
/// null where it cannot be loaded, which the log tells. They lie in lib/soran/plugins, beside the folder of
/// the executables.
QObject* loadModule(const QString& name);

template <class Interface>
Interface* moduleOf(const QString& name) {
  return qobject_cast<Interface*>(loadModule(name));
}

} // namespace soran
