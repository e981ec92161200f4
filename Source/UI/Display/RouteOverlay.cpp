#include "Source/UI/Display/RouteOverlay.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/Parts/MarkImages.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta {

namespace {

constexpr graphics::Color startColor{0.18F, 0.55F, 0.34F};
constexpr graphics::Color endColor{0.80F, 0.22F, 0.20F};
constexpr graphics::Color rideColor{0.122F, 0.302F, 0.655F};
constexpr double backing = 3.5;  // around the letters, which may lie on the route

std::string nameOf(const std::shared_ptr<Location>& location, const char* otherwise) {
  return location ? location->name.value_or(otherwise) : otherwise;
}

// Where the change of floor leads that a path is making when it leaves a node.
std::string changeText(const NodeList& path, std::size_t index) {
  for (const FloorChange& change : floorChanges(path))
    if (change.begin <= index && index < change.end)
      return floorChangeMark(*path[index]->map, *path[change.end]->map);
  return "";
}

FloorVisit wholeOf(const NodeList& path) { return {nullptr, 0, path.size() - 1}; }

}  // namespace

RouteOverlay::RouteOverlay(NodeList path, std::shared_ptr<Location> from,
                           std::shared_ptr<Location> to)
    : path_(std::move(path)),
      from_(std::move(from)),
      to_(std::move(to)),
      visits_(floorVisits(path_)),
      shown_(wholeOf(path_)) {}

const FloorVisit* RouteOverlay::firstVisitTo(const Map& floor) const {
  const auto found = std::find_if(visits_.begin(), visits_.end(),
                                  [&](const auto& visit) { return *visit.floor == floor; });
  return found == visits_.end() ? nullptr : &*found;
}

const FloorVisit* RouteOverlay::visitWith(const Node& node) const {
  for (const FloorVisit& visit : visits_)
    for (std::size_t i = visit.first; i <= visit.last; ++i)
      if (path_[i].get() == &node) return &visit;
  return nullptr;
}

std::vector<graphics::Vector3> RouteOverlay::pointsOf(const FloorVisit& visit) const {
  std::vector<graphics::Vector3> points;
  for (std::size_t i = visit.first; i <= visit.last; ++i)
    points.push_back(scenePosition(*path_[i]));
  return points;
}

std::vector<graphics::Vector3> RouteOverlay::pointsOn(const Map& floor) const {
  std::vector<graphics::Vector3> points;
  for (const auto& node : path_)
    if (*node->map == floor) points.push_back(scenePosition(*node));
  return points;
}

void RouteOverlay::hide(MapView& mapView) {
  for (const Mark& mark : marks_) mapView.removeMarker(mark.marker);
  marks_.clear();
  looks_.clear();
  mapView.clearPaths();
}

void RouteOverlay::show(MapView& mapView, double scale, const FloorVisit* only) {
  hide(mapView);
  scale_ = scale;
  shown_ = only != nullptr ? *only : wholeOf(path_);
  const auto part = [&](std::size_t index) {
    return path_.begin() + static_cast<NodeList::difference_type>(index);
  };
  if (shown_.last > shown_.first) mapView.drawPath({part(shown_.first), part(shown_.last) + 1});
  if (!mapView.currentMap()) return;
  addMarks(*mapView.currentMap());
  arrangeMarks(mapView);
}

// One mark for a node, whatever happens there.
void RouteOverlay::addMarks(const Map& floor) {
  const auto isHere = [&](std::size_t i) { return *path_[i]->map == floor; };
  for (std::size_t i = shown_.first; i <= shown_.last; ++i) {
    if (!isHere(i)) continue;
    const bool isStart = i == 0;
    const bool isEnd = i + 1 == path_.size();
    const bool leaves = !isEnd && !isHere(i + 1);
    if (!isStart && !isEnd && !leaves && isHere(i - 1)) continue;
    std::string text = isStart ? nameOf(from_, "Start") : isEnd ? nameOf(to_, "Destination") : "";
    if (leaves) text += (text.empty() ? "" : "  ") + changeText(path_, i);
    addMark(path_[i], isEnd ? endColor : isStart ? startColor : rideColor, text);
  }
}

void RouteOverlay::addMark(const std::shared_ptr<Node>& node, graphics::Color color,
                           const std::string& text) {
  auto style = labelStyle();
  style.bold = true;
  style.outlineWidth = backing;
  style.outlineColor = graphics::colors::white;
  marks_.push_back({node, color, graphics::makeTextImage(text, style, scale_), nullptr});
}

std::vector<std::vector<graphics::Point>> RouteOverlay::linesOn(const MapView& mapView) const {
  std::vector<std::vector<graphics::Point>> lines;
  const Node* last = nullptr;  // of the line that is being drawn
  for (std::size_t i = shown_.first; i <= shown_.last; ++i) {
    const Node& node = *path_[i];
    if (node.map != mapView.currentMap()) {
      last = nullptr;
      continue;
    }
    if (last == nullptr) lines.emplace_back();
    last = &node;
    lines.back().push_back(mapView.findPositionCameraViewport(scenePosition(node)));
  }
  return lines;
}

void RouteOverlay::arrangeMarks(MapView& mapView) {
  std::vector<MarkPlace> places;
  for (const Mark& mark : marks_)
    places.push_back({mapView.findPositionCameraViewport(scenePosition(*mark.node)),
                      mark.text ? mark.text->size() : graphics::Size{}});
  auto looks = placeMarks(places, linesOn(mapView), mapView.bounds(), looks_);
  for (std::size_t i = 0; i < marks_.size(); ++i)
    if (!marks_[i].marker || looks[i] != looks_[i]) setLook(mapView, marks_[i], looks[i]);
  looks_ = std::move(looks);
}

void RouteOverlay::setLook(MapView& mapView, Mark& mark, const MarkLook& look) const {
  mapView.removeMarker(mark.marker);
  mark.marker = makeImageMarker(makeMarkImage(look, mark.color, mark.text, scale_));
  if (!mark.marker) return;
  mark.marker->setPosition(scenePosition(*mark.node));
  mapView.addMarker(mark.marker);
}

}  // namespace orivanta
