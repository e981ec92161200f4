// Taps, highlights and positions of a map view.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/Styled/MapTaps.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/Parts/MapViewParts.hpp"
#include "Source/UI/Printed.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;

namespace {

constexpr float zoomedDistance = 200;  // scene units; start of the first pinch after a tap

std::string namesOf(const Polygon& polygon) {
  std::vector<std::string> names;
  for (const auto& link : polygon.locations)
    if (const auto location = link.lock()) names.push_back(location->name.value_or(""));
  return fmt::format("[{}]", fmt::join(names, ", "));
}

// Returns the node of the current floor, or null if no floor is shown.
std::shared_ptr<scene::Node> floorNode(const MapView& view) {
  const auto children = unwrap(unwrap(view.sceneView).scene()).rootNode()->children();
  return children.empty() ? nullptr : children.front();
}

// Connectors have no polygon, and are not told to `placeTapped`, as if their shapes were tapped.
void tellLabelTapped(const MapView& view, const HitPlace& hit) {
  if (const auto receiver = view.delegate.lock())
    hit.polygon ? receiver->polygonSelected(hit.polygon) : receiver->nothingSelected();
  const bool isConnector = std::dynamic_pointer_cast<Vortex>(hit.place) != nullptr;
  if (const auto told = view.placeTapped) told(isConnector ? nullptr : hit.place);
}

bool hasMaterialNamed(const scene::Node& shape, const std::string& name) {
  const auto geometry = shape.geometry();
  if (!geometry) return false;
  const auto material = geometry->firstMaterial();
  return material && material->name() == name;
}

}  // namespace

void MapView::sceneTapped(const view::TapGestureRecognizer& recognizer) {
  const graphics::Point point = recognizer.location(*this);
  diagnostic("tap location: " + printed(point));
  const StyledMap* const styled = this->styled();
  if (styled == nullptr || styled->labels().view() == nullptr) return selectPolygonAt(point);
  const auto style = parts_->style;  // a callback may remove it
  const HitPlace hit = hitPlace(*this, *styled, point);
  const MapTap tap{hit.place, hit.leadsTo ? hit.leadsTo : currentMap(), hit.leadsTo != nullptr};
  if (hit.leadsTo)
    changeMap(hit.leadsTo);
  else if (hit.isLabel)
    tellLabelTapped(*this, hit);
  else
    selectPolygonAt(point);
  if (const auto tapped = style->tapped) tapped(tap);
}

void MapView::selectPolygonAt(graphics::Point point) {
  const auto receiver = delegate.lock();
  const auto selectNothing = [&] {
    if (receiver) receiver->nothingSelected();
    tellPlaceTapped(nullptr);
  };
  const auto hits = unwrap(sceneView).hits(point);
  if (hits.empty()) return selectNothing();
  const std::optional<std::string> name = hits.front().node->name();
  if (!name || *name == "Ground") return selectNothing();

  const auto& polygons = unwrap(unwrap(venue).polygonDictionary);
  const auto entry = polygons.find(*name);
  diagnostic("Got Poly: " + (entry == polygons.end() ? "nil" : *name));
  if (entry == polygons.end()) return selectNothing();
  const std::shared_ptr<Polygon> polygon = entry->second;

  parts_->markers.hideAll();
  resetPinch();
  diagnostic("cameraOrbit position " + printed(unwrap(cameraOrbit).position()));
  if (polygon->locations.empty()) {
    selectNothing();
  } else {
    if (receiver) receiver->polygonSelected(polygon);
    tellPlaceTapped(polygon->locations.front().lock());
  }
  diagnostic("Location selected: " + namesOf(*polygon));
}

// Calls a copy, because the function may replace `placeTapped`.
void MapView::tellPlaceTapped(const std::shared_ptr<Location>& place) {
  if (const auto told = placeTapped) told(place);
}

void MapView::resetPinch() {
  scaleStart = static_cast<double>(1 / (zoomedDistance / unwrap(cameraDistance)));
  scaleEnd = scaleStart;
}

void MapView::highlightPolygon(const std::shared_ptr<Polygon>& polygon, graphics::Color color) {
  parts_->shapes.highlight(polygon, color);
}

void MapView::clearHighlightedPolygons() { parts_->shapes.clearHighlights(); }

graphics::Vector3 MapView::getGeomeryMidPoint(const scene::Geometry& geometry) {
  if (geometry.elements().empty()) foundation::fatalError("Index out of range");
  const scene::GeometryElement& element = geometry.elements().front();
  const scene::GeometrySource* vertices = geometry.source(scene::Semantic::vertex);
  if (vertices == nullptr) foundation::fatalAbsence();
  graphics::Box box;
  for (std::size_t i = 0; i < element.indexCount(); ++i)
    box.add(vertices->vector(element.index(i)));
  return (box.min + box.max) / 2.0F;
}

graphics::Vector3 MapView::findPosition3D(const Location& location) const {
  const auto floor = floorNode(*this);
  const auto named = unwrap(floor).childNodes([&](const scene::Node& shape) {
    return location.name && hasMaterialNamed(shape, *location.name);
  });
  if (!named.empty()) {
    const graphics::Vector3 middle = getGeomeryMidPoint(*named.front()->geometry());
    diagnostic("3d position " + printed(middle));
    return middle;
  }
  for (const auto& polygon : location.polygons) {
    const auto shape = parts_->shapes.shapeOf(*polygon);
    if (shape && shape->geometry() && shape->parent() == floor)
      return getGeomeryMidPoint(*shape->geometry());
  }
  for (const auto& node : location.nodes)
    if (node->map == currentMap()) return scenePosition(*node);
  return floor->boundingBox().center();
}

graphics::Point MapView::findPositionCameraViewport(graphics::Vector3 position) const {
  const graphics::Vector3 projected = unwrap(sceneView).project(position);
  return {projected.x, projected.y};
}

graphics::Point MapView::findPosition2D(graphics::Vector3 position) const {
  return overlayPosition(*this, unwrap(sceneView).project(position));
}

graphics::Point MapView::findPosition2DByLocation(const Location& location) const {
  return findPosition2D(findPosition3D(location));
}

graphics::Point MapView::findViewportPosition(const Location& location) const {
  const graphics::Point position =
      overlay().convertToView(findPosition2DByLocation(location), sceneView->bounds().size);
  diagnostic("position 2D spriteScene: " + printed(position));
  return position;
}

}  // namespace orivanta
