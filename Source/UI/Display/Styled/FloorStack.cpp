#include "Source/UI/Display/Styled/FloorStack.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/FloorCorners.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/Display/Styled/FloorCells.hpp"
#include "Source/UI/Display/Styled/RouteLine.hpp"
#include "Source/UI/Display/Turned.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using graphics::Transaction;

namespace {

constexpr double seconds = 0.35;
constexpr double stackFieldOfView = 20;  // degrees
constexpr float fadedOpacity = 0.55F;
constexpr double hiddenShare = 0.22;  // of a floor, by another one
// From one floor to the next, of the depth of all floors.
constexpr double leastShift = 0.4;
constexpr double mostShift = 1.6;   // where there is room
constexpr double usedShare = 0.75;  // of the height of the view
constexpr double markHeight = 34;   // points, of the pin of a route
constexpr Surroundings aroundStack{0.06, 1};

// The extent of points along a direction, which is turned counterclockwise from the y axis.
double depthAlong(const std::vector<graphics::Vector3>& points, double turn) {
  double least = 0;
  double most = 0;
  bool isFirst = true;
  for (const graphics::Vector3& point : points) {
    const double place = turned({point.x, point.y}, -turn).y;
    least = isFirst ? place : std::min(least, place);
    most = isFirst ? place : std::max(most, place);
    isFirst = false;
  }
  return most - least;
}

// Returns the turn nearest to another one at which the longer side of the floors is across the
// view. Among turns that are equally good but for rounding, the first one is taken.
double broadestTurn(const std::vector<graphics::Vector3>& points, double former) {
  constexpr double pi = std::numbers::pi;
  constexpr int steps = 36;  // of half a turn
  constexpr double betterShare = 0.999;
  double best = 0;
  double least = depthAlong(points, 0);
  for (int i = 1; i < steps; ++i) {
    const double depth = depthAlong(points, i * pi / steps);
    if (depth > least * betterShare) continue;
    least = depth;
    best = i * pi / steps;
  }
  return former + std::remainder(best - former, pi);
}

FloorList floorsWithModels(const Venue& venue) {
  FloorList floors;
  for (const auto& map : *venue.maps)
    if (map->mapObject && !map->mapObject->boundingBox().isEmpty()) floors.push_back(map);
  return floors;
}

graphics::Box raised(graphics::Box box, double offset) {
  box.min.z += static_cast<float>(offset);
  box.max.z += static_cast<float>(offset);
  return box;
}

}  // namespace

void FloorStack::attach(MapView& view) {
  map_ = &view;
  shown_ = std::make_shared<StackView>(view);
  shown_->addTo(view);
}

void FloorStack::detach() {
  if (!shown_) return;
  drop(/*restoresCamera=*/true);
  shown_->removeFromSuperview();
  shown_.reset();
  routes_.clear();
  selected_.reset();
  map_ = nullptr;
}

void FloorStack::open(const std::shared_ptr<const MapTheme>& theme, CameraMotion motion) {
  MapCamera& camera = map_->camera();
  if (isOn_ || !map_->venue || !camera.isReady()) return;
  if (!flat_) flat_ = {camera.target(), camera.lens().fieldOfView};
  isOn_ = true;
  build(theme);
  camera.moveTo(stackPose(), stackFieldOfView, motion);
  moveTo(1, motion);
}

void FloorStack::close(CameraMotion motion) {
  if (!isShown()) return;
  isOn_ = false;
  map_->camera().setExtent(std::nullopt);
  map_->camera().moveTo(flat_->pose, flat_->fieldOfView, motion);
  moveTo(0, motion);
}

void FloorStack::rebuild(const std::shared_ptr<const MapTheme>& theme) {
  if (!isOn_) return drop(/*restoresCamera=*/true);
  if (!map_->camera().isReady()) return drop(/*restoresCamera=*/false);
  build(theme);
  map_->camera().moveTo(stackPose(), stackFieldOfView);
  moveTo(1, CameraMotion::atOnce);
}

void FloorStack::drop(bool restoresCamera) {
  if (!isShown()) return;
  const Transaction transaction;
  const FlatView flat = *flat_;
  isOn_ = false;
  map_->camera().setExtent(std::nullopt);
  moveTo(0, CameraMotion::atOnce);
  if (restoresCamera) map_->camera().moveTo(flat.pose, flat.fieldOfView);
}

void FloorStack::build(const std::shared_ptr<const MapTheme>& theme) {
  const Transaction transaction;
  const Venue& venue = *map_->venue;
  const auto& current = map_->currentMap();
  FloorList floors = floorsWithModels(venue);
  if (std::find(floors.begin(), floors.end(), current) == floors.end()) floors.push_back(current);
  corners_.clear();
  for (const auto& floor : floors)
    for (const graphics::Vector3& corner : cornersOfShapes(*floor->mapObject))
      corners_.push_back(corner);
  turn_ = broadestTurn(corners_, flat_->pose.turn);
  lines_.clear();
  for (const RouteContents& route : routes_) lines_.push_back(route.line);
  const StackedFloors stack = stackFloors(floors, floorsOnRoutes(), current, spacingOf(floors));

  if (group_) group_->removeFromParent();
  levels_.clear();
  group_ = scene::Node::make();
  corners_.clear();
  extent_ = {};
  graphics::Box box;
  for (const StackedFloor& floor : stack.floors) {
    addLevel(floor, *theme);
    const scene::Node& model = *floor.floor->mapObject;
    box.add(model.boundingBox());
    extent_.add(raised(model.boundingBox(), floor.offset));
    for (graphics::Vector3 corner : cornersOfShapes(model)) {
      corner.z += static_cast<float>(floor.offset);
      corners_.push_back(corner);
    }
  }
  contents_ = std::make_shared<const StackView::Contents>(
      StackView::Contents{stack, box, current, routes_, selected_, theme});
  shown_->setContents(contents_);
  map_->camera().setExtent(extent_);
  showRoutes(*theme);
  map_->sceneView->scene()->rootNode()->addChild(group_);
}

// At most a share of each floor is hidden by another one, as far as the grid can tell. The floors
// are further apart if the view is high enough.
FloorSpacing FloorStack::spacingOf(const FloorList& floors) const {
  const CellFrame frame(corners_, turn_);
  std::map<const Map*, FloorCells> cells;
  for (const auto& floor : floors) cells.emplace(floor.get(), FloorCells(*floor->mapObject, frame));
  const double upright = std::cos(stackTilt) / std::sin(stackTilt);
  const graphics::Size size = map_->camera().lens().size;
  const double height = frame.width * size.height / std::max(1.0, size.width);
  const double flat = frame.depth * std::cos(stackTilt);
  const double count =
      std::max<double>(1, static_cast<double>(std::min(floors.size(), mostStackedFloors)) - 1);
  const double room = flat > 0 ? (height * usedShare - flat) / flat / count : 0;
  const double least = std::clamp(room, leastShift, mostShift);
  return [cells = std::move(cells), depth = frame.depth * upright, least](const Map& lower,
                                                                          const Map& upper) {
    const double shift = cells.at(&lower).shiftOf(cells.at(&upper), hiddenShare);
    return std::max(shift, least) * depth;
  };
}

FloorList FloorStack::floorsOnRoutes() const {
  FloorList floors;
  for (const RouteContents& route : routes_) {
    const auto points = route.line->points();
    for (std::size_t i = 0; i < points.size(); ++i)
      if (i == 0 || i + 1 == points.size() || points[i - 1].floor == points[i].floor)
        if (floors.empty() || floors.back() != points[i].floor) floors.push_back(points[i].floor);
  }
  return floors;
}

void FloorStack::addLevel(const StackedFloor& floor, const MapTheme& theme) {
  Level level{floor.floor, floor.offset, floor.isWhole ? 1 : fadedOpacity, scene::Node::make()};
  const Map& map = *floor.floor;
  if (floor.floor != map_->currentMap()) {
    level.clone = std::make_unique<FloorClone>(map);
    if (!floor.isWhole)
      level.clone->reduce(shapeRoles(map, *map_->venue, theme.words), theme,
                          guidance::unitsPerMeterOf(*map_->venue).value_or(1));
    level.carrier->addChild(level.clone->sharedNode());
  }
  for (const auto& line : lines_) {
    const auto parts = line->linesOn(map, 0, line->size());
    level.lines.push_back(scene::Node::make());
    if (!parts.empty()) level.lines.back()->setRibbons(scene::Ribbons::make(parts, 0), {});
    level.carrier->addChild(level.lines.back());
  }
  group_->addChild(level.carrier);
  levels_.push_back(std::move(level));
}

CameraPose FloorStack::stackPose() const {
  const MapCamera& camera = map_->camera();
  CameraPose pose = camera.pose();
  pose.tilt = stackTilt;
  pose.turn = turn_;
  pose.z = extent_.center().z;
  Insets insets = camera.insets();
  const Insets names = StackView::roomForNames(contents_->stack, *contents_->theme);
  insets.left += names.left;
  insets.top += names.top + (routes_.empty() && !selected_ ? 0 : markHeight);
  insets.bottom += names.bottom;
  return framing(corners_, pose, {camera.lens().size, stackFieldOfView}, insets, aroundStack);
}

// The scene shifts by the height of the new floor, and the camera with it.
void FloorStack::floorChanged(const std::shared_ptr<Map>& former, CameraMotion motion) {
  if (!isShown()) return;
  const auto& current = map_->currentMap();
  const auto found = std::find_if(levels_.begin(), levels_.end(),
                                  [&](const Level& level) { return level.floor == current; });
  if (motion == CameraMotion::atOnce || found == levels_.end() || !former->mapObject)
    return drop(/*restoresCamera=*/true);
  const Transaction transaction;
  const double rise = found->offset;
  for (Level& level : levels_) {
    level.offset -= rise;
    if (level.floor == current) level.clone.reset();
    if (level.floor != former) continue;
    level.clone = std::make_unique<FloorClone>(*former);
    level.carrier->addChild(level.clone->sharedNode());
  }
  change([&](StackView::Contents& contents) {
    contents.shown = current;
    for (StackedFloor& floor : contents.stack.floors) floor.offset -= rise;
  });
  setShare(share_);
  CameraPose pose = map_->camera().pose();
  pose.z -= rise * share_;
  map_->camera().setExtent(raised(extent_, -rise));
  map_->camera().setPose(pose);
  close(motion);
}

void FloorStack::moveTo(double share, CameraMotion motion) {
  motion_.reset();
  if (motion == CameraMotion::glide) motion_ = Motion{share_, share, std::nullopt};
  shown_->setMoving(motion_.has_value());
  setShare(motion_ ? share_ : share);
  if (!motion_ && !isOn_) clear();
}

void FloorStack::advance(double time) {
  if (!motion_) return;
  if (!motion_->start) motion_->start = time;
  const double share = std::clamp((time - *motion_->start) / seconds, 0.0, 1.0);
  if (share >= 1) return moveTo(motion_->to, CameraMotion::atOnce);
  setShare(motion_->from + (motion_->to - motion_->from) * eased(share));
}

void FloorStack::setShare(double share) {
  const Transaction transaction;
  share_ = share;
  shown_->setShare(share);
  for (const Level& level : levels_) {
    level.carrier->setPosition(scene::Axis::z, static_cast<float>(level.offset * share));
    const auto opacity = static_cast<float>(share);
    if (level.clone) level.clone->node().setOpacity(level.opacity * opacity);
    for (const auto& line : level.lines) line->setOpacity(opacity);
  }
}

void FloorStack::clear() {
  const Transaction transaction;
  if (group_) group_->removeFromParent();
  group_.reset();
  levels_.clear();
  contents_.reset();
  flat_.reset();
  shown_->setContents(nullptr);
}

void FloorStack::copyLooks(const std::shared_ptr<const MapTheme>& theme) {
  if (!contents_) return;
  const Transaction transaction;
  change([&](StackView::Contents& contents) { contents.theme = theme; });
  for (const Level& level : levels_) {
    if (level.clone) level.clone->copyLook(*theme);
  }
  showRoutes(*theme);
}

void FloorStack::setRoutes(std::vector<RouteContents> routes,
                           const std::shared_ptr<const MapTheme>& theme) {
  routes_ = std::move(routes);
  if (!isShown()) return;
  const auto isKnown = [&](const RouteContents& route) { return indexOf(*route.line) >= 0; };
  if (isOn_ && !std::all_of(routes_.begin(), routes_.end(), isKnown)) return rebuild(theme);
  const Transaction transaction;
  change([&](StackView::Contents& contents) { contents.routes = routes_; });
  showRoutes(*theme);
}

void FloorStack::change(const std::function<void(StackView::Contents&)>& change) {
  StackView::Contents contents = *contents_;
  change(contents);
  contents_ = std::make_shared<const StackView::Contents>(std::move(contents));
  shown_->setContents(contents_);
}

void FloorStack::setSelected(std::optional<RouteMark> selected) {
  if (selected == selected_) return;
  selected_ = std::move(selected);
  if (isShown()) change([&](StackView::Contents& contents) { contents.selected = selected_; });
}

bool FloorStack::isOutdated() const { return isOn_ && lines_.size() != routes_.size(); }

// Routes are drawn anew after many changes, then with another object for the same line.
int FloorStack::indexOf(const RouteLine& line) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const auto& known) {
    const auto& points = known->points();
    return std::equal(points.begin(), points.end(), line.points().begin(), line.points().end());
  });
  return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

// The lines have no arrows: most of them would be too short.
void FloorStack::showRoutes(const MapTheme& theme) {
  const Transaction transaction;
  for (const Level& level : levels_) {
    for (const auto& line : level.lines) line->setHidden(true);
    for (const RouteContents& route : routes_) {
      const int index = indexOf(*route.line);
      if (index < 0) continue;
      const auto& line = level.lines[static_cast<std::size_t>(index)];
      line->setHidden(false);
      line->setRibbons(line->ribbons(), routeLook(theme, route.color.value_or(theme.colors.route),
                                                  {0, 1}, route.passed, 0));
    }
  }
}

void FloorStack::copyColor(const scene::Node& shape) {
  for (const Level& level : levels_)
    if (level.clone) level.clone->copyColor(shape);
}

void FloorStack::copyOutlines() {
  for (const Level& level : levels_)
    if (level.clone) level.clone->copyOutlines();
}

FloorList FloorStack::floors() const {
  FloorList floors;
  for (const Level& level : levels_) floors.push_back(level.floor);
  return floors;
}

std::shared_ptr<Map> FloorStack::floorOf(const scene::Node& node) const {
  for (auto above = node.parent(); above; above = above->parent())
    for (const Level& level : levels_)
      if (level.carrier == above) return level.floor;
  return nullptr;
}

}  // namespace orivanta
