// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/clock.h"
#include "platform/endpoint.h"
#include "platform/image_table.h"

#include <QString>
#include <QStringView>

namespace soran {

/// The path under which the embedded endpoint of a demonstration serves a source of charts and cameras.
QString demoSourcePath(QStringView source);

/// A drawn stand-in as SVG: its name, where it stands for, the time, and that it is no weather. `seed` gives
/// the drawing its shape.
QByteArray demoPicture(const QString& name, const QString& source, const QDateTime& time, uint seed);

/// The same as a document of one page (PDF 1.4), in letters of ASCII.
QByteArray demoDocument(const QString& name, const QDateTime& time);

/// A table by which every item of the menus is had from the endpoint at `base`, in the way in which `table`
/// has it: as a picture of its time, from a list, in layers, as a document. Where that has nothing to ask,
/// there is a stand-in.
ImageTable demoTable(const ImageTable& table, const QString& base);

/// Serves a stand-in for every chart, camera and page of the sources, each under demoSourcePath() and its own
/// path, and what demoTable() names. `clock` and `delivered` outlive the requests to `server`.
void serveDemoPictures(Endpoint& server, const Clock& clock,
                       const std::function<QByteArray(const QString&)>& delivered);

} // namespace soran
