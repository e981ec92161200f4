// What a tap on a styled map hits.
// Private header.
#pragma once

#include <memory>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

class MapView;
class StyledMap;

/// The place that a tap hits.
struct HitPlace {
  std::shared_ptr<Location> place;   ///< a location or a connector; null if none was hit
  std::shared_ptr<Polygon> polygon;  ///< of a label's location on the floor; null if it has none
  bool isLabel = false;              ///< a name, a symbol or a mark was hit, not a shape
  std::shared_ptr<Map> leadsTo;      ///< where a mark of a floor change leads; null for others
};

/// Finds the place at a point of the view: that of a mark, else that of a name or a symbol, else
/// that of the nearest shape, else that of the nearest symbol within 16 points. The map view must
/// show a floor, and the style must be that of the map view. Main thread.
HitPlace hitPlace(const MapView& view, const StyledMap& style, graphics::Point point);

}  // namespace orivanta
