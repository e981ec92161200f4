// The route drawing operations of a map view.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

class MapView;

/// Draws the map view's `currentPath` and `currentHighlightNode` into its scene. The nodes are in
/// the lists of `MapViewDirectionsPathNodes`, which all map views share. While the view has a
/// style, the nodes of whole routes are hidden, and the style draws these routes. Main thread.
class RouteLayer {
 public:
  explicit RouteLayer(MapView& view);
  ~RouteLayer();
  RouteLayer(const RouteLayer&) = delete;
  RouteLayer& operator=(const RouteLayer&) = delete;

  /// See `drawPath`, `clearPaths`, `highlightNode` and `removeHighlightNode` of `MapView`.
  void draw(const NodeList& path, int from);
  void clear();
  void highlight(const std::shared_ptr<Node>& node);
  static void removeHighlight();

  /// Adds a part of a route to the shared list and, if there is a scene, to the scene.
  void add(const std::shared_ptr<scene::Node>& part);

  /// Adapts the drawn routes to the style of the view, which may be null.
  void styleChanged();

 private:
  // A route and its nodes in the scene.
  struct Drawn {
    NodeList path;
    std::size_t from;
    std::vector<std::shared_ptr<scene::Node>> parts;
  };

  void addToScene(const std::shared_ptr<scene::Node>& node);
  void adapt(const Drawn& route);
  void forget();

  MapView& view_;
  std::vector<std::unique_ptr<Drawn>> drawn_;  // their addresses are the owners of styled routes
};

}  // namespace orivanta
