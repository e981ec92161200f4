#include "Source/UI/Display/Styled/FloorStack.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/FloorCorners.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/Display/Turned.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using graphics::Transaction;

namespace {

constexpr double seconds = 0.35;
constexpr double stackFieldOfView = 20;  // degrees
constexpr float fadedOpacity = 0.55F;
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
// view.
double broadestTurn(const std::vector<graphics::Vector3>& points, double former) {
  constexpr double pi = std::numbers::pi;
  constexpr int steps = 36;  // of half a turn
  double best = 0;
  double least = depthAlong(points, 0);
  for (int i = 1; i < steps; ++i) {
    const double depth = depthAlong(points, i * pi / steps);
    if (depth >= least) continue;
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
  if (std::ranges::find(floors, current) == floors.end()) floors.push_back(current);
  corners_.clear();
  for (const auto& floor : floors)
    for (const graphics::Vector3& corner : cornersOfShapes(*floor->mapObject))
      corners_.push_back(corner);
  turn_ = broadestTurn(corners_, flat_->pose.turn);
  StackRoute route = stackRoute(path_, venue, theme->words);
  const StackedFloors stack =
      stackFloors(floors, route.floors(), current, depthAlong(corners_, turn_));

  if (group_) group_->removeFromParent();
  levels_.clear();
  group_ = scene::Node::make();
  corners_.clear();
  extent_ = {};
  graphics::Box box;
  for (const StackedFloor& floor : stack.floors) {
    addLevel(floor, route, *theme);
    const scene::Node& model = *floor.floor->mapObject;
    box.add(model.boundingBox());
    extent_.add(raised(model.boundingBox(), floor.offset));
    for (graphics::Vector3 corner : cornersOfShapes(model)) {
      corner.z += static_cast<float>(floor.offset);
      corners_.push_back(corner);
    }
  }
  contents_ = std::make_shared<const StackView::Contents>(
      StackView::Contents{stack, box, current, std::move(route), theme});
  shown_->setContents(contents_);
  map_->camera().setExtent(extent_);
  map_->sceneView->scene()->rootNode()->addChild(group_);
}

void FloorStack::addLevel(const StackedFloor& floor, const StackRoute& route,
                          const MapTheme& theme) {
  Level level{floor.floor,         floor.offset, floor.isWhole ? 1 : fadedOpacity,
              scene::Node::make(), nullptr,      nullptr};
  const Map& map = *floor.floor;
  if (floor.floor != map_->currentMap()) {
    level.clone = std::make_unique<FloorClone>(map);
    if (!floor.isWhole)
      level.clone->reduce(shapeRoles(map, *map_->venue, theme.words), theme,
                          guidance::unitsPerMeterOf(*map_->venue).value_or(1));
    level.carrier->addChild(level.clone->sharedNode());
  }
  for (const StackRoute::Visit& visit : route.visits)
    if (visit.floor == floor.floor) {
      const auto line = scene::Node::make();
      line->setRibbons(routeRibbons(visit), routeLook(theme));
      if (!level.route) level.route = scene::Node::make();
      level.route->addChild(line);
    }
  if (level.route) level.carrier->addChild(level.route);
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
  insets.left += StackView::widthOfNames(contents_->stack, *contents_->theme);
  return framing(corners_, pose, {camera.lens().size, stackFieldOfView}, insets, aroundStack);
}

// The scene shifts by the height of the new floor, and the camera with it.
void FloorStack::floorChanged(const std::shared_ptr<Map>& former, CameraMotion motion) {
  if (!isShown()) return;
  const auto& current = map_->currentMap();
  const auto found = std::ranges::find(levels_, current, &Level::floor);
  if (motion == CameraMotion::atOnce || found == levels_.end() || !former->mapObject)
    return drop(/*restoresCamera=*/true);
  const Transaction transaction;
  const double rise = found->offset;
  StackView::Contents contents = *contents_;
  contents.shown = current;
  for (StackedFloor& floor : contents.stack.floors) floor.offset -= rise;
  for (Level& level : levels_) {
    level.offset -= rise;
    if (level.floor == current) level.clone.reset();
    if (level.floor != former) continue;
    level.clone = std::make_unique<FloorClone>(*former);
    level.carrier->addChild(level.clone->sharedNode());
  }
  contents_ = std::make_shared<const StackView::Contents>(std::move(contents));
  shown_->setContents(contents_);
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
    if (level.route) level.route->setOpacity(opacity);
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
  StackView::Contents contents = *contents_;
  contents.theme = theme;
  contents_ = std::make_shared<const StackView::Contents>(std::move(contents));
  shown_->setContents(contents_);
  for (const Level& level : levels_) {
    if (level.clone) level.clone->copyLook(*theme);
    if (!level.route) continue;
    for (const auto& line : level.route->children())
      line->setRibbons(line->ribbons(), routeLook(*theme));
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

std::shared_ptr<Map> FloorStack::nameAt(graphics::Point point) const {
  return isOn_ ? shown_->nameAt(point) : nullptr;
}

std::shared_ptr<Map> FloorStack::floorOf(const scene::Node& node) const {
  for (auto above = node.parent(); above; above = above->parent())
    for (const Level& level : levels_)
      if (level.carrier == above) return level.floor;
  return nullptr;
}

}  // namespace orivanta
