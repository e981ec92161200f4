// Plans routes in the background and shows them.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/CategoryMatch.hpp"
#include "Apps/Viewer/ProfileChoices.hpp"
#include "Apps/Viewer/VenueView.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/OpeningHours.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr int alternatives = 2;

std::optional<std::string> nameOf(const std::shared_ptr<Location>& place) {
  return place ? std::optional(place->name.value_or("")) : std::nullopt;
}

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

}  // namespace

// --- Stops

// Uses the tapped place as the missing end of the route. Returns false if no end is missing.
bool VenueView::fillsEnd(const std::shared_ptr<Location>& place) {
  if (!hasStops() || isComplete()) return false;
  if (nearest_)
    beginRouteToNearest(place, nearest_);
  else
    beginRoute(from_ ? from_ : place, to_ ? to_ : place);
  return true;
}

void VenueView::beginRoute(std::shared_ptr<Location> from, std::shared_ptr<Location> to) {
  from_ = std::move(from);
  to_ = std::move(to);
  nearest_ = nullptr;
  select(nullptr);
  planRoute();
}

void VenueView::beginRouteToNearest(std::shared_ptr<Location> from,
                                    const std::shared_ptr<Category>& category) {
  from_ = std::move(from);
  to_ = nullptr;
  nearest_ = category;
  between_.clear();
  select(nullptr);
  planRoute();
}

void VenueView::addStop(const std::shared_ptr<Location>& place) {
  between_.push_back(place);
  select(nullptr);
  planRoute();
}

void VenueView::clearRoute() {
  from_ = nullptr;
  to_ = nullptr;
  nearest_ = nullptr;
  between_.clear();
  planRoute();
}

void VenueView::lookFor(bool start) {
  searchesForStart_ = start;
  search_->open(start ? "Where do you start?" : "Where do you want to go?", !start);
}

// Offers the routes from and over a place on its card.
void VenueView::offerRoutes(const std::shared_ptr<Location>& place) {
  const auto hours = guidance::OpeningHours::parse(place->_data["hours"].stringValue());
  card_->setPlaceClosed(isClosed(*place) ||
                        (hours && hours->at(clock_()) == guidance::OpenState::closed));
  card_->setCanAddStop(from_ && to_ && place != from_ && place != to_);
  offered_.clear();
  std::vector<std::string> titles;
  const auto offer = [&](const char* title, const std::shared_ptr<Category>& category) {
    const auto& own = place->categories;
    if (!category || std::find(own.begin(), own.end(), category) != own.end()) return;
    offered_.push_back(category);
    titles.emplace_back(title);
  };
  offer("Nearest toilet", categoryOfKind(*venue_, {"toilet", "toilets", "restroom", "washroom"}));
  offer("Nearest exit", categoryOfKind(*venue_, {"exit", "exits", "entrance", "entrances"}));
  card_->setNearest(titles);
}

// --- Planning

const GuidedRoute* VenueView::route() const {
  return plan_.routes.empty() ? nullptr : &plan_.routes[chosenRoute_];
}

void VenueView::planRoute() {
  startPlanning();
  if (isComplete() && closuresWanted) closuresWanted();
}

StopNames VenueView::stopNames(const std::shared_ptr<Location>& to) const {
  StopNames names{nameOf(from_), {}, nameOf(to)};
  for (const auto& place : between_) names.between.push_back(place->name.value_or(""));
  if (!to && nearest_) names.to = "Nearest: " + nearest_->name.value_or("");
  return names;
}

void VenueView::startPlanning() {
  dropRoute();
  guide_.cancel();
  routePanel_->setStops(stopNames(to_));
  routePanel_->setProfile(profile_);
  if (isComplete()) {
    guidance::Request request;
    request.stops = {from_};
    for (const auto& place : between_) request.stops.emplace_back(place);
    request.stops.push_back(nearest_ ? guidance::Stop(nearest_) : guidance::Stop(to_));
    request.bestOrder = between_.size() > 1;
    request.profile = profileChoices[profile_].make();
    request.closures = closures_;
    if (nearest_) request.at = clock_();
    request.alternatives = alternatives;
    guide_.start(std::move(request));
    routePanel_->setPlanning();
  }
  arrangePanels();
}

void VenueView::showPlan(GuidedPlan plan) {
  plan_ = std::move(plan);
  if (!plan_.routes.empty()) return showRoute(0);
  const bool hasHelp = plan_.problem->kind == guidance::Problem::Kind::onlyWithSteps;
  routePanel_->setProblem(plan_.problemText,
                          hasHelp ? std::optional(preferLiftChoice) : std::nullopt);
  arrangePanels();
}

void VenueView::dropRoute() {
  stopWalk();
  clearPosition();
  routeOverlay_.reset();
  plan_ = {};
  chosenRoute_ = 0;
  floors_->setRoute({});
}

void VenueView::showRoute(std::size_t index) {
  stopWalk();
  clearPosition();
  chosenRoute_ = index;
  const GuidedRoute& route = plan_.routes[index];
  between_.clear();  // now in the order of the visits
  const auto& visits = route.itinerary.visits;
  for (std::size_t i = 1; i + 1 < visits.size(); ++i) between_.push_back(visits[i].location);
  routePanel_->setStops(stopNames(route.to()));
  routePanel_->setRoute(plan_, index, arrivalText(route));
  arrangePanels();
  floors_->setRoute(route.floors);
  routeOverlay_ = std::make_unique<RouteOverlay>(mapView_, route.path, from_, route.to());
  wantedNode_ = route.path.front();
  showFloor(wantedNode_->map);
  routeOverlay_->show(scale_);
  frameRoute();
}

std::string VenueView::arrivalText(const GuidedRoute& route) const {
  if (!route.itinerary.hasScale || route.steps.empty()) return "";
  const auto minutes = static_cast<long long>(std::ceil(route.itinerary.seconds() / 60));
  const guidance::LocalTime arrival = clock_().plusMinutes(minutes);
  return fmt::format("Arrival {:02}:{:02}", arrival.hour, arrival.minute);
}

// Frames the wanted part of the route, or else the first part on the current floor.
void VenueView::frameRoute() {
  const FloorVisit* visit = routeOverlay_->visitWith(*wantedNode_);
  if (visit == nullptr || visit->floor != mapView_->currentMap())
    visit = routeOverlay_->firstVisitTo(*mapView_->currentMap());
  if (visit != nullptr)
    camera().frame(routeOverlay_->pointsOf(*visit), aroundRoute(*venue_), CameraMotion::glide);
}

// Shows where an instruction begins, and the walk to the next one.
void VenueView::showStep(std::size_t index) {
  stopWalk();
  const NodeList nodes = nodesOf(*route(), index);
  wantedNode_ = nodes.front();
  routePanel_->setCurrentStep(index);
  setPosition(wantedNode_->map, scenePosition(*wantedNode_));
  showFloor(wantedNode_->map);
  if (mapView_->currentMap() != wantedNode_->map) return;  // not loaded yet
  std::vector<graphics::Vector3> points;
  for (const auto& node : nodes) points.push_back(scenePosition(*node));
  camera().frame(points, aroundRoute(*venue_), CameraMotion::glide);
}

}  // namespace orivanta::viewer
