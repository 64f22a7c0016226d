// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/clock.h"
#include "platform/endpoint_server.h"

#include <QString>
#include <QStringView>

namespace soran {

/// The path under which the embedded endpoint of a demonstration serves a source of charts and cameras.
QString demoSourcePath(QStringView source);

/// A drawn stand-in as SVG: its name, where it stands for, the time, and that it is no weather. `seed` gives
/// the drawing its shape.
QByteArray demoPicture(const QString& name, const QString& source, const QDateTime& time, uint seed);

/// Serves a stand-in for every chart, camera and page of the sources, each under demoSourcePath() and its own
/// path. `clock` outlives the requests to `server`.
void serveDemoPictures(EndpointServer& server, const Clock& clock);

} // namespace soran
