#include "Source/UI/Parts/RouteLayer.hpp"

#include <fmt/format.h>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/RouteRibbons.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MapViewDirections.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;

void RouteLayer::draw(const NodeList& path, int from) {
  const auto count = static_cast<std::int64_t>(path.size()) - from;
  if (count < 2) return diagnostic("Path too short, aborting");
  if (from < 0) foundation::fatalError("Index out of range");
  view_.currentPath = path;
  view_.currentPathNode = from;
  diagnostic(fmt::format("Drawing new {} count path", count));
  const graphics::Transaction transaction;
  const auto& floor = view_.currentMap();
  for (auto i = static_cast<std::size_t>(from); i + 1 < path.size(); ++i)
    if (path[i]->map == floor && path[i + 1]->map == floor)
      view_.drawPathSegment(scenePosition(*path[i]), scenePosition(*path[i + 1]));
}

void RouteLayer::clear() {
  const graphics::Transaction transaction;
  for (const auto& node : MapViewDirectionsPathNodes::nodes()) node->removeFromParent();
  MapViewDirectionsPathNodes::nodes().clear();
  removeHighlight();
}

void RouteLayer::add(const std::shared_ptr<scene::Node>& part) {
  MapViewDirectionsPathNodes::nodes().push_back(part);
  addToScene(part);
}

void RouteLayer::addToScene(const std::shared_ptr<scene::Node>& node) {
  if (const auto scene = unwrap(view_.sceneView).scene()) scene->rootNode()->addChild(node);
}

void RouteLayer::highlight(const std::shared_ptr<Node>& node) {
  const graphics::Transaction transaction;
  removeHighlight();
  view_.currentHighlightNode = node;
  if (unwrap(node).map != view_.currentMap())
    return diagnostic("Highlighted node not on map, skipping");
  const auto disc = makeHighlightDisc(scenePosition(*node));
  addToScene(disc);
  MapViewDirectionsPathNodes::highLightNode() = disc;
}

void RouteLayer::removeHighlight() {
  const auto& disc = MapViewDirectionsPathNodes::highLightNode();
  if (!disc) return;
  for (const auto& particles : disc->particleSystems()) particles->reset();
  disc->removeFromParent();
}

}  // namespace orivanta
