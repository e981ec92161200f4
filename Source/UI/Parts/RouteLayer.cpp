#include "Source/UI/Parts/RouteLayer.hpp"

#include <fmt/format.h>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteRibbons.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MapViewDirections.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;

namespace {

// The layers of all map views.
std::vector<RouteLayer*>& layers() {
  static std::vector<RouteLayer*> all;
  return all;
}

}  // namespace

RouteLayer::RouteLayer(MapView& view) : view_(view) { layers().push_back(this); }

RouteLayer::~RouteLayer() { std::erase(layers(), this); }

void RouteLayer::draw(const NodeList& path, int from) {
  const auto count = static_cast<std::int64_t>(path.size()) - from;
  if (count < 2) return diagnostic("Path too short, aborting");
  if (from < 0) foundation::fatalError("Index out of range");
  view_.currentPath = path;
  view_.currentPathNode = from;
  diagnostic(fmt::format("Drawing new {} count path", count));
  const graphics::Transaction transaction;
  const auto& floor = view_.currentMap();
  auto& nodes = MapViewDirectionsPathNodes::nodes();
  const auto before = static_cast<std::ptrdiff_t>(nodes.size());
  const auto first = static_cast<std::size_t>(from);
  for (std::size_t i = first; i + 1 < path.size(); ++i)
    if (path[i]->map == floor && path[i + 1]->map == floor)
      view_.drawPathSegment(scenePosition(*path[i]), scenePosition(*path[i + 1]));
  drawn_.push_back(
      std::make_unique<Drawn>(Drawn{path, first, {nodes.begin() + before, nodes.end()}}));
  adapt(*drawn_.back());
}

void RouteLayer::adapt(const Drawn& route) {
  const auto& style = view_.style();
  for (const auto& part : route.parts) part->setHidden(style != nullptr);
  if (!style) return;
  RouteContents contents;
  contents.line = std::make_shared<const RouteLine>(routePoints(route.path));
  contents.first = route.from;
  contents.end = route.path.size();
  contents.marks = floorChangeMarks(route.path, contents.first, contents.end, view_.venue.get(),
                                    style->theme()->words);
  const auto endMark = [&](RouteMark::Form form, const Node& node) {
    contents.marks.push_back({form, {scenePosition(node), node.map}});
  };
  if (route.from == 0) endMark(RouteMark::Form::start, *route.path.front());
  endMark(RouteMark::Form::end, *route.path.back());
  style->styled_->route().set(&route, std::move(contents));
}

void RouteLayer::styleChanged() {
  const graphics::Transaction transaction;
  for (const auto& route : drawn_) adapt(*route);
}

void RouteLayer::forget() {
  if (const auto& style = view_.style())
    for (const auto& route : drawn_) style->styled_->route().remove(route.get());
  drawn_.clear();
}

void RouteLayer::clear() {
  const graphics::Transaction transaction;
  for (const auto& node : MapViewDirectionsPathNodes::nodes()) node->removeFromParent();
  MapViewDirectionsPathNodes::nodes().clear();
  for (RouteLayer* const layer : layers()) layer->forget();
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
