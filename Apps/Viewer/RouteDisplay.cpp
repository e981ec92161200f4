#include "Apps/Viewer/RouteDisplay.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "Apps/Viewer/Widgets/Icon.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double dotSide = 22;  // points
constexpr graphics::Color dotColor{0.05F, 0.48F, 1.0F};

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
  if (mark_) drawMark(scale);
}

void RouteDisplay::clear() {
  removeMark();
  overlay_.reset();
  wanted_ = nullptr;
}

std::shared_ptr<Map> RouteDisplay::wantedFloor() const { return wanted_ ? wanted_->map : nullptr; }

void RouteDisplay::frame() {
  const FloorVisit* visit = overlay_->visitWith(*wanted_);
  if (visit == nullptr || visit->floor != mapView_->currentMap())
    visit = overlay_->firstVisitTo(*mapView_->currentMap());
  if (visit != nullptr)
    mapView_->camera().frame(overlay_->pointsOf(*visit), aroundRoute(*mapView_->venue),
                             CameraMotion::glide);
}

void RouteDisplay::markStep(const GuidedRoute& route, std::size_t index, double scale) {
  wanted_ = nodesOf(route, index).front();
  markPosition(wanted_->map, scenePosition(*wanted_), scale);
}

void RouteDisplay::frameStep(const GuidedRoute& route, std::size_t index) {
  if (mapView_->currentMap() != wantedFloor()) return;  // not loaded yet
  std::vector<graphics::Vector3> points;
  for (const auto& node : nodesOf(route, index)) points.push_back(scenePosition(*node));
  mapView_->camera().frame(points, aroundRoute(*mapView_->venue), CameraMotion::glide);
}

void RouteDisplay::markPosition(const std::shared_ptr<Map>& floor, graphics::Vector3 position,
                                double scale) {
  markFloor_ = floor;
  markPosition_ = position;
  drawMark(scale);
}

void RouteDisplay::drawMark(double scale) {
  if (!mark_ || markScale_ != scale) {
    if (std::exchange(isMarkShown_, false)) mapView_->removeMarker(mark_);
    mark_ = makeImageMarker(drawDot(dotColor, dotSide, scale));
    markScale_ = scale;
  }
  mark_->setPosition(markPosition_);
  floorShown();
}

void RouteDisplay::removeMark() {
  markFloor_ = nullptr;
  floorShown();
  mark_ = nullptr;
}

// Shows the mark only on its floor.
void RouteDisplay::floorShown() {
  const bool isShown = markFloor_ && markFloor_ == mapView_->currentMap();
  if (isShown == isMarkShown_) return;
  isMarkShown_ = isShown;
  if (isShown)
    mapView_->addMarker(mark_);
  else
    mapView_->removeMarker(mark_);
}

void RouteDisplay::arrange() {
  if (overlay_) overlay_->arrange();
}

}  // namespace orivanta::viewer
