// What labels must not cover.
// Private header.
#pragma once

#include <functional>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/View/View.hpp"
#include "Source/UI/Display/Styled/RouteBoxes.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class FloorProjection;
class MapView;

/// The obstacles, in points of the view. Used under transactions.
struct LabelObstacles {
  std::vector<graphics::Rect> covered;     ///< by other views
  std::vector<RouteSegment> route;         ///< on the floor
  std::vector<graphics::Rect> routeMarks;  ///< in the current frame

  /// Returns what the aids over the map cover, for a frame at a scale in pixels per point. May be
  /// empty.
  std::function<std::vector<graphics::Rect>(double scale)> furniture;

  /// Returns the panels over the map. `labels` is the view of the labels; children of the map view
  /// in front of it are added unless they cover all of it.
  std::vector<graphics::Rect> panels(const MapView& map, const view::View& labels,
                                     double scale) const;

  /// Returns the parts of the view that the route, its marks, and the visible markers cover, except
  /// markers that are hidden where they collide.
  std::vector<graphics::Rect> marks(const MapView& map, const FloorProjection& projection,
                                    const MapTheme& theme) const;
};

}  // namespace orivanta
