// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/projection.h"
#include "pictures/station_plot.h"

#include <optional>
#include <span>
#include <vector>

namespace soran {

/// An airport of the map.
struct MapStation {
  BoardRow row;
  std::optional<EarthPosition> position = {}; ///< nothing where it is not known
};

/// Where a station stands on a picture.
struct PlacedStation {
  StationCode code;
  Point at;
  bool isPlotted = false; ///< by the station model; else by a mark alone, for want of room
};

/// The stations of a map as shapes, and where each is seen.
struct MapPicture {
  Drawing drawing;
  std::vector<PlacedStation> placed = {};
};

/// Draws the stations in letters of that height: the station model of each where no worse one stands in its
/// room, that of `chosen` before all. Of the others a mark: a small disc within the limits, a larger one the
/// further beyond, a circle where the station is silent. What room there is depends on the scale alone and
/// never on the centre, but for stations on the far side of the earth.
MapPicture drawStations(std::span<const MapStation> stations, const Projection& projection, double size,
                        const QString& chosen = {});

/// The areas of those in force or to come as outlines, the latter dashed, with their names ("M02"). One whose
/// area is the whole region or cannot be read is named in a line at the upper left.
Drawing drawSigmets(const QList<Sigmet>& sigmets, const Projection& projection, const QDateTime& now,
                    double size);

/// The lines of the degrees, each ten, two or half a degree by the scale, in Ink::Night.
Drawing drawGraticule(const Projection& projection);

/// What these lines are, in letters of that height: longitudes along the lower edge ("E140", "W17230"),
/// latitudes along the left one ("N35", "N3530").
Drawing drawDegrees(const Projection& projection, double size);

/// The station nearest to the point, at most `reach` away; nothing where there is none.
std::optional<StationCode> stationAt(const MapPicture& picture, Point point, double reach);

} // namespace soran
