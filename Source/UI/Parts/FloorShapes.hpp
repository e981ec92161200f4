// The shapes of a map view's floors, found by polygon identifier, and their highlights.
#pragma once

#include <tsl/ordered_map.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Scene/Material.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Owned by a map view. Main thread.
class FloorShapes {
 public:
  /// Adds the children of a floor's model. A new shape replaces an existing one of the same name.
  void add(const scene::Node& floor);

  /// Clears the highlights, then removes all shapes.
  void clear();

  /// Returns the shape of a polygon, or null if it has none.
  std::shared_ptr<scene::Node> shapeOf(const Polygon& polygon) const;

  /// See `MapView::highlightPolygon` and `MapView::clearHighlightedPolygons`.
  void highlight(const std::shared_ptr<Polygon>& polygon, graphics::Color color);
  void clearHighlights();

  std::vector<std::shared_ptr<scene::Node>> highlightedShapes() const;

  /// Called after a shape was highlighted, and after its highlight was cleared.
  std::function<void(scene::Node& shape, bool isHighlighted)> highlightChanged;

 private:
  tsl::ordered_map<std::string, std::shared_ptr<scene::Node>> shapes_;      // by name
  tsl::ordered_map<std::shared_ptr<Polygon>, scene::Contents> highlights_;  // the previous contents
};

}  // namespace orivanta
