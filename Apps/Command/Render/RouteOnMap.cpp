#include "Apps/Command/Render/RouteOnMap.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Command/Places.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta::command {

namespace {

constexpr graphics::Color startColor{0.18F, 0.55F, 0.34F};
constexpr graphics::Color endColor{0.80F, 0.22F, 0.20F};
constexpr graphics::Color rideColor{0.122F, 0.302F, 0.655F};
constexpr double pinHeight = 34;  // points
constexpr double backing = 3.5;   // around the letters, which may lie on the route

std::string nameOf(const std::shared_ptr<Location>& location, const char* otherwise) {
  return location ? location->name.value_or(otherwise) : otherwise;
}

const char* arrowBetween(const Map& from, const Map& to) {
  if (to.elevation == from.elevation) return "\u2192";
  return to.elevation < from.elevation ? "\u2193" : "\u2191";
}

// Where a ride that begins at a node of the path ends, and whether that is up or down.
std::string rideText(const NodeList& path, std::size_t begin) {
  std::size_t end = begin + 1;
  while (end + 1 < path.size() && path[end]->map != path[end + 1]->map) ++end;
  const Map& from = *path[begin]->map;
  const Map& to = *path[end]->map;
  return fmt::format("{} {}", arrowBetween(from, to), floorLabel(to));
}

}  // namespace

RouteOnMap::RouteOnMap(NodeList path, std::shared_ptr<Location> from, std::shared_ptr<Location> to)
    : path_(std::move(path)), from_(std::move(from)), to_(std::move(to)) {}

std::vector<std::shared_ptr<Map>> RouteOnMap::floors() const {
  std::vector<std::shared_ptr<Map>> floors;
  const auto add = [&](const std::shared_ptr<Map>& floor) {
    if (std::find(floors.begin(), floors.end(), floor) == floors.end()) floors.push_back(floor);
  };
  add(path_.front()->map);
  for (std::size_t i = 0; i + 1 < path_.size(); ++i)
    if (path_[i]->map == path_[i + 1]->map) add(path_[i]->map);
  add(path_.back()->map);
  return floors;
}

std::vector<graphics::Vector3> RouteOnMap::pointsOn(const Map& floor) const {
  std::vector<graphics::Vector3> points;
  for (const auto& node : path_)
    if (*node->map == floor) points.push_back(scenePosition(*node));
  return points;
}

void RouteOnMap::hide(MapView& mapView) {
  for (const auto& mark : marks_) mapView.removeMarker(mark);
  marks_.clear();
  mapView.clearPaths();
}

void RouteOnMap::show(MapView& mapView, double scale) {
  hide(mapView);
  mapView.drawPath(path_);
  const auto& floor = mapView.currentMap();
  for (std::size_t i = 0; i + 1 < path_.size(); ++i) {
    if (path_[i]->map == path_[i + 1]->map) continue;
    if (path_[i]->map == floor) mark(mapView, *path_[i], rideColor, rideText(path_, i), scale);
    if (path_[i + 1]->map == floor) mark(mapView, *path_[i + 1], rideColor, "", scale);
  }
  if (path_.front()->map == floor)
    mark(mapView, *path_.front(), startColor, nameOf(from_, "Start"), scale);
  if (path_.back()->map == floor)
    mark(mapView, *path_.back(), endColor, nameOf(to_, "Destination"), scale);
}

void RouteOnMap::mark(MapView& mapView, const Node& place, graphics::Color color,
                      const std::string& text, double scale) {
  auto style = labelStyle();
  style.bold = true;
  style.outlineWidth = backing;
  style.outlineColor = graphics::colors::white;
  const auto marker = makePinMarker(color, pinHeight, text, style, scale);
  marker->setPosition(scenePosition(place));
  mapView.addMarker(marker);
  marks_.push_back(marker);
}

}  // namespace orivanta::command
