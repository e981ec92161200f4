#include "Source/UI/Display/RouteOverlay.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

#include "Platform/Graphics/Changes.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteOverlayMarks.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta {

namespace {

void append(std::string& list, const char* separator, const std::string& more) {
  if (!more.empty()) list += (list.empty() ? "" : separator) + more;
}

}  // namespace

RouteOverlay::RouteOverlay(std::shared_ptr<MapView> mapView, NodeList path,
                           std::shared_ptr<Location> from, std::shared_ptr<Location> to)
    : mapView_(std::move(mapView)),
      path_(std::move(path)),
      from_(std::move(from)),
      to_(std::move(to)),
      visits_(floorVisits(path_)),
      line_(std::make_shared<const RouteLine>(routePoints(path_))),
      marks_(std::make_unique<Marks>()) {}

RouteOverlay::~RouteOverlay() { hide(); }

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

void RouteOverlay::show(double scale, const FloorVisit* only) {
  scale_ = scale;
  first_ = only != nullptr ? only->first : 0;
  end_ = only != nullptr ? only->last + 1 : path_.size();
  redraw();
}

void RouteOverlay::hide() {
  clear();
  first_ = end_ = 0;
}

void RouteOverlay::clear() {
  const graphics::Transaction transaction;
  for (const auto& segment : segments_) segment->removeFromParent();
  segments_.clear();
  if (const auto style = style_.lock()) style->styled_->route().remove(this);
  style_.reset();
  for (const Mark& mark : marks_->list) mapView_->removeMarker(mark.marker);
  *marks_ = {};
  scene_ = nullptr;
  floor_ = nullptr;
}

void RouteOverlay::arrange() {
  if (first_ == end_ || arrangedChange_ == graphics::changeCount()) return;
  const auto style = style_.lock();
  if (mapView_->style() != style || (style && !style->styled_->route().has(this))) return redraw();
  if (style) return;  // it follows the map view
  if (mapView_->currentMap() != floor_ || mapView_->sceneView->scene() != scene_) return redraw();
  arrangeMarks();
}

void RouteOverlay::setPassed(const Map& floor, graphics::Vector3 position) {
  passed_ = line_->lengthTo(floor, position, passed_);
  if (const auto style = style_.lock()) style->styled_->route().setPassed(this, passed_);
}

void RouteOverlay::clearPassed() {
  passed_ = 0;
  if (const auto style = style_.lock()) style->styled_->route().setPassed(this, passed_);
}

void RouteOverlay::redraw() {
  const graphics::Transaction transaction;
  clear();
  if (const auto style = mapView_->style()) return showStyled(*style);
  floor_ = mapView_->currentMap();
  scene_ = mapView_->sceneView->scene();
  if (!floor_ || !scene_) return;
  drawSegments();
  addMarks();
  arrangeMarks();
}

void RouteOverlay::showStyled(MapStyle& style) {
  style_ = mapView_->style();
  RouteContents contents{line_,
                         first_,
                         end_,
                         color,
                         styledMarks(style, first_, end_),
                         passed_,
                         styledMarks(style, 0, path_.size())};
  style.styled_->route().set(this, std::move(contents));
}

// The ends replace stops at the same node.
std::vector<RouteMark> RouteOverlay::styledMarks(const MapStyle& style, std::size_t first,
                                                 std::size_t end) const {
  std::vector<RouteMark> marks =
      floorChangeMarks(path_, first, end, mapView_->venue.get(), style.theme()->words);
  for (std::size_t i = first; i < end; ++i) {
    const bool isStart = i == 0;
    const bool isEnd = i + 1 == path_.size();
    const auto here = stopsAt(i);
    if (!isStart && !isEnd && here.empty()) continue;
    RouteMark mark{isEnd     ? RouteMark::Form::end
                   : isStart ? RouteMark::Form::start
                             : RouteMark::Form::stop,
                   {scenePosition(*path_[i]), path_[i]->map}};
    if (isStart || isEnd) {
      mark.text = isEnd ? nameOf(to_, destination) : nameOf(from_, start);
      mark.place = isEnd ? to_ : from_;
    } else {
      std::tie(mark.number, mark.text) = stopTexts(i);
      mark.place = stops[here.front()].place;
    }
    marks.push_back(std::move(mark));
  }
  return marks;
}

bool RouteOverlay::isOnShownFloor(std::size_t index) const { return path_[index]->map == floor_; }

// Returns the indices of the stops at a node of the path.
std::vector<std::size_t> RouteOverlay::stopsAt(std::size_t index) const {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < stops.size(); ++i)
    if (stops[i].index == index) found.push_back(i);
  return found;
}

std::string RouteOverlay::nameOf(const std::shared_ptr<Location>& place,
                                 const std::string& otherwise) const {
  if (!place || !place->name) return otherwise;
  return mapView_->venue ? labelName(*mapView_->venue, *place) : *place->name;
}

// Returns the numbers and the names of the stops at a node.
std::pair<std::string, std::string> RouteOverlay::stopTexts(std::size_t index) const {
  std::string numbers;
  std::string names;
  for (const std::size_t stop : stopsAt(index)) {
    append(numbers, ",", std::to_string(stop + 1));
    append(names, ", ", nameOf(stops[stop].place, ""));
  }
  return {std::move(numbers), std::move(names)};
}

}  // namespace orivanta
