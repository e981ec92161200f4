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
  std::shared_ptr<Map> leadsTo{};    ///< where a mark or the name of a floor leads; else null
  std::shared_ptr<Map> floor{};      ///< of what was hit if floors are stacked; otherwise null
};

/// Finds the place at a point of the view. If floors are stacked: the floor of a name, else the
/// place of a mark, else that of a symbol, else that of the nearest shape of any floor. Otherwise:
/// that of a mark, else that of a name or a symbol, else that of the nearest shape, else that of
/// the nearest symbol within 16 points. The map view must show a floor, and the style must be that
/// of the map view. Main thread.
HitPlace hitPlace(const MapView& view, const StyledMap& style, graphics::Point point);

}  // namespace orivanta
