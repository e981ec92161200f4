// The route drawing operations of a map view.
#pragma once

#include <memory>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

class MapView;

/// Draws the map view's `currentPath` and `currentHighlightNode` into its scene. The nodes are in
/// the lists of `MapViewDirectionsPathNodes`, which all map views share. Main thread.
class RouteLayer {
 public:
  explicit RouteLayer(MapView& view) : view_(view) {}

  /// See `drawPath`, `clearPaths`, `highlightNode` and `removeHighlightNode` of `MapView`.
  void draw(const NodeList& path, int from);
  void clear();
  void highlight(const std::shared_ptr<Node>& node);
  static void removeHighlight();

  /// Adds a part of a route to the shared list and, if there is a scene, to the scene.
  void add(const std::shared_ptr<scene::Node>& part);

 private:
  void addToScene(const std::shared_ptr<scene::Node>& node);

  MapView& view_;
};

}  // namespace orivanta
