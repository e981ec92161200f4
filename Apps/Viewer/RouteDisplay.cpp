#include "Apps/Viewer/RouteDisplay.hpp"

#include <algorithm>
#include <optional>
#include <vector>

#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

// Returns the nodes from the beginning of an instruction to that of the next one, on one floor.
NodeList nodesOf(const GuidedRoute& route, std::size_t index) {
  const guidance::Step& step = route.steps[index];
  const NodeList& nodes = route.itinerary.legs[step.leg].nodes;
  std::size_t end = nodes.size();
  if (index + 1 < route.steps.size() && route.steps[index + 1].leg == step.leg)
    end = std::min(end, route.steps[index + 1].first + 1);
  if (step.kind == guidance::Step::Kind::ride) end = step.first + 1;
  return {nodes.begin() + static_cast<std::ptrdiff_t>(step.first),
          nodes.begin() + static_cast<std::ptrdiff_t>(std::max(end, step.first + 1))};
}

// Returns the stops between the ends. The last node of a leg begins the next one.
std::vector<RouteOverlay::Stop> stopsOf(const guidance::Itinerary& itinerary) {
  std::vector<RouteOverlay::Stop> stops;
  std::size_t legs = 0;
  std::size_t index = 0;  // in the path, after these legs
  for (std::size_t i = 1; i + 1 < itinerary.visits.size(); ++i) {
    const guidance::Visit& visit = itinerary.visits[i];
    for (; legs < visit.leg; ++legs) index += itinerary.legs[legs].nodes.size() - 1;
    stops.push_back({index, visit.location});
  }
  return stops;
}

}  // namespace

void RouteDisplay::show(const GuidedRoute& route, double scale) {
  overlay_ = std::make_unique<RouteOverlay>(mapView_, route.path, route.from(), route.to());
  overlay_->start = overlay_->destination = "";  // if they are no places
  overlay_->stops = stopsOf(route.itinerary);
  wanted_ = route.path.front();
  overlay_->show(scale);
}

void RouteDisplay::redraw(double scale) {
  if (overlay_) overlay_->show(scale);
}

void RouteDisplay::clear() {
  mapView_->style()->setPosition(std::nullopt);
  overlay_.reset();
  wanted_ = nullptr;
}

std::shared_ptr<Map> RouteDisplay::wantedFloor() const { return wanted_ ? wanted_->map : nullptr; }

void RouteDisplay::frame(CameraMotion motion) {
  if (!overlay_) return;
  const FloorVisit* visit = overlay_->visitWith(*wanted_);
  if (visit == nullptr || visit->floor != mapView_->currentMap())
    visit = overlay_->firstVisitTo(*mapView_->currentMap());
  if (visit != nullptr)
    mapView_->camera().frame(overlay_->pointsOf(*visit), aroundRoute(*mapView_), motion);
}

void RouteDisplay::markStep(const GuidedRoute& route, std::size_t index) {
  wanted_ = nodesOf(route, index).front();
  const graphics::Vector3 at = scenePosition(*wanted_);
  mapView_->style()->setPosition(MapPosition{wanted_->map, at.x, at.y, at.z});
}

void RouteDisplay::frameStep(const GuidedRoute& route, std::size_t index, CameraMotion motion) {
  if (mapView_->currentMap() != wantedFloor()) return;  // not loaded yet
  std::vector<graphics::Vector3> points;
  for (const auto& node : nodesOf(route, index)) points.push_back(scenePosition(*node));
  mapView_->camera().frame(points, aroundRoute(*mapView_), motion);
}

void RouteDisplay::setPassed(const Map& floor, graphics::Vector3 position) {
  if (overlay_) overlay_->setPassed(floor, position);
}

void RouteDisplay::clearPassed() {
  if (overlay_) overlay_->clearPassed();
}

void RouteDisplay::arrange() {
  if (overlay_) overlay_->arrange();
}

}  // namespace orivanta::viewer
