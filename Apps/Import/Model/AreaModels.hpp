// The models of single areas. Heights are in the venue's units, lengths in meters.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Package/Model.hpp"

namespace orivanta::importer {

/// The heights of the surfaces of a storey, in the venue's units. Routes are drawn at 0.5.
struct SurfaceHeights {
  double slab = 0.2;
  double walkway = 0.4;
  double room = 0.44;
  double opening = 0.46;
  double unitsPerMeter = 1.0;

  /// The height of something that stands on the floor of a room.
  double above(double meters) const { return room + meters * unitsPerMeter; }
};

/// The middle of a gap in a wall, and its width.
struct Gap {
  Point middle;
  double width = 1.1;
};

/// A level surface with its rim.
void addPlate(package::Model& model, const Polygon& polygon, double from, double to);

/// A floor with low walls around it that are open at the gaps. A shape that is too narrow for walls
/// becomes a block.
void addRoom(package::Model& model, const Polygon& polygon, const std::vector<Gap>& gaps,
             const SurfaceHeights& heights);

/// Steps that rise from the side of a point. With `down`, they fall instead.
void addSteps(package::Model& model, const Polygon& polygon, Point from, bool down,
              const SurfaceHeights& heights);

/// A belt with two balustrades that rises, or falls, from the side of a point.
void addEscalator(package::Model& model, const Polygon& polygon, Point from, bool down,
                  const SurfaceHeights& heights);

/// A shaft.
void addShaft(package::Model& model, const Polygon& polygon, const SurfaceHeights& heights);

/// The two leaves of an elevator's doors, on the side of the shaft that is nearest to a point.
void addShaftDoors(package::Model& model, const Polygon& polygon, Point at,
                   const SurfaceHeights& heights);

}  // namespace orivanta::importer
