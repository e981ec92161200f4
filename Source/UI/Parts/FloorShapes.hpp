// The shapes of a map view's floors by the polygons whose identifiers they bear, and their
// highlights.
#pragma once

#include <tsl/ordered_map.h>

#include <memory>
#include <string>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Scene/Material.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Owned by a map view; main thread.
class FloorShapes {
 public:
  /// Adds the children of a floor's model. A name that is known refers to the new shape from now
  /// on.
  void add(const scene::Node& floor);

  /// Forgets all shapes. Highlights are cleared first.
  void clear();

  /// Null if the polygon has no shape.
  std::shared_ptr<scene::Node> shapeOf(const Polygon& polygon) const;

  /// As `MapView::highlightPolygon` and `MapView::clearHighlightedPolygons` say.
  void highlight(const std::shared_ptr<Polygon>& polygon, graphics::Color color);
  void clearHighlights();

 private:
  tsl::ordered_map<std::string, std::shared_ptr<scene::Node>> shapes_;      // by name
  tsl::ordered_map<std::shared_ptr<Polygon>, scene::Contents> highlights_;  // what was there before
};

}  // namespace orivanta
