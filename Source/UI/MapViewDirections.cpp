#include "Source/UI/MapViewDirections.hpp"

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/RouteRibbons.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Parts/MapViewParts.hpp"

namespace orivanta {

using graphics::Vector3;

std::vector<std::shared_ptr<scene::Node>>& MapViewDirectionsPathNodes::nodes() {
  static std::vector<std::shared_ptr<scene::Node>> nodes;
  return nodes;
}

std::shared_ptr<scene::Node>& MapViewDirectionsPathNodes::highLightNode() {
  static std::shared_ptr<scene::Node> node;
  return node;
}

void MapView::drawPath(const NodeList& path, int from) { parts_->routes.draw(path, from); }

void MapView::drawCurrentPath() {
  const graphics::Transaction transaction;
  const std::shared_ptr<Node> highlighted = currentHighlightNode;
  clearPaths(false);
  if (currentPath) drawPath(NodeList(*currentPath), currentPathNode);
  if (highlighted) highlightNode(highlighted);
}

void MapView::clearPaths(bool forgetPath) {
  parts_->routes.clear();
  if (forgetPath) currentPath.reset();
}

void MapView::drawPathSegment(Vector3 positionA, Vector3 positionB) {
  const graphics::Transaction transaction;
  for (const auto& layer : makeRouteSegment(positionA, positionB, pathColor))
    parts_->routes.add(layer);
}

void MapView::drawPathSegmentStrip(Vector3 positionA, Vector3 positionB, float pathWidth,
                                   graphics::Color color, float elevation) {
  parts_->routes.add(makeRouteStrip(positionA, positionB, pathWidth, color, elevation));
}

void MapView::drawPathSegmentArrow(Vector3 positionA, Vector3 positionB, float pathWidth,
                                   float elevation) {
  parts_->routes.add(makeRouteArrows(positionA, positionB, pathWidth, elevation));
}

void MapView::highlightNode(const std::shared_ptr<Node>& node) { parts_->routes.highlight(node); }

void MapView::highlightNode(const NodeList& nodes, std::size_t index) {
  if (index >= nodes.size()) foundation::fatalError("Index out of range");
  highlightNode(nodes[index]);
}

void MapView::removeHighlightNode() { RouteLayer::removeHighlight(); }

}  // namespace orivanta
