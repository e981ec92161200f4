#include "Source/UI/Display/Styled/FloorStack.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/Display/Styled/RouteLine.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using graphics::Transaction;

namespace {

constexpr double seconds = 0.35;
constexpr double stackFieldOfView = 20;  // degrees
constexpr double markHeight = 34;        // points, of the pin of a route
constexpr Surroundings aroundStack{0.06, 1};
constexpr double fullOutlines = 2.5;    // points per meter from which outlines are not thinner
constexpr double leastOutlines = 0.35;  // of their width
constexpr double leastSymbols = 0.75;   // of the size of icons on a single floor

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

void FloorStack::frame(CameraMotion motion) {
  if (isOn_) map_->camera().moveTo(stackPose(), stackFieldOfView, motion);
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
  const auto& current = map_->currentMap();
  StackLevels::Lines lines;
  for (const RouteContents& route : routes_) lines.push_back(route.line);
  levels_.clear();
  symbols_.reset();
  const Insets& insets = map_->camera().insets();
  graphics::Size free = map_->camera().lens().size;
  free.width -= insets.left + insets.right;
  free.height -= insets.top + insets.bottom;
  StackLayout layout(
      {*map_->venue, current, floorsOnRoutes(), flat_->pose.turn, free, theme->words});
  levels_.build(*map_, layout, std::move(lines), *theme);
  turn_ = layout.turn;
  extent_ = layout.extent;
  corners_ = std::move(layout.corners);
  cover_ = std::move(layout.cover);
  show({std::move(layout.stack), layout.box, current, routes_, selected_, theme});
  map_->camera().setExtent(extent_);
  levels_.showRoutes(routes_, *theme);
  levels_.setOutlineShare(outlineShare());
}

// Outlines of the usual width would cover the rooms of large venues.
double FloorStack::outlineShare() const {
  const auto unitsPerMeter = guidance::unitsPerMeterOf(*map_->venue);
  if (!unitsPerMeter) return 1;
  const Lens lens{map_->camera().lens().size, stackFieldOfView};
  const double pointsPerMeter = *unitsPerMeter / (lens.slopePerPoint() * stackPose().distance);
  return std::clamp(pointsPerMeter / fullOutlines, leastOutlines, 1.0);
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

CameraPose FloorStack::stackPose() const {
  const MapCamera& camera = map_->camera();
  CameraPose pose = camera.pose();
  pose.tilt = stackTilt;
  pose.turn = turn_;
  pose.z = extent_.center().z;
  Insets insets = camera.insets();
  const Insets names = StackNames::margins(contents_->stack, *contents_->theme);
  insets.left += names.left;
  insets.top += names.top + (routes_.empty() && !selected_ ? 0 : markHeight);
  insets.bottom += names.bottom;
  return framing(corners_, pose, {camera.lens().size, stackFieldOfView}, insets, aroundStack);
}

// The scene shifts by the height of the new floor, and the camera with it.
void FloorStack::floorChanged(const std::shared_ptr<Map>& former, CameraMotion motion) {
  if (!isShown()) return;
  const Transaction transaction;
  const auto& current = map_->currentMap();
  const bool canGlide = motion == CameraMotion::glide && former->mapObject;
  const auto rise = canGlide ? levels_.change(current, former) : std::nullopt;
  if (!rise) return drop(/*restoresCamera=*/true);
  StackContents contents = *contents_;
  contents.shown = current;
  for (StackedFloor& floor : contents.stack.floors) floor.offset -= *rise;
  show(std::move(contents));
  setShare(share_);
  CameraPose pose = map_->camera().pose();
  pose.z -= *rise * share_;
  map_->camera().setExtent(raised(extent_, -*rise));
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
  levels_.setShare(share);
}

void FloorStack::clear() {
  const Transaction transaction;
  levels_.clear();
  symbols_.reset();
  contents_.reset();
  flat_.reset();
  shown_->setContents(nullptr);
}

void FloorStack::copyLooks(const std::shared_ptr<const MapTheme>& theme) {
  if (!contents_) return;
  const Transaction transaction;
  symbols_.reset();
  StackContents contents = *contents_;
  contents.theme = theme;
  show(std::move(contents));
  levels_.copyLooks(*theme);
  levels_.showRoutes(routes_, *theme);
}

void FloorStack::setRoutes(std::vector<RouteContents> routes,
                           const std::shared_ptr<const MapTheme>& theme) {
  routes_ = std::move(routes);
  if (!isShown()) return;
  const auto isKnown = [&](const RouteContents& route) { return levels_.hasLine(*route.line); };
  if (isOn_ && !std::all_of(routes_.begin(), routes_.end(), isKnown)) return rebuild(theme);
  const Transaction transaction;
  StackContents contents = *contents_;
  contents.routes = routes_;
  show(std::move(contents));
  levels_.showRoutes(routes_, *theme);
}

void FloorStack::show(StackContents contents) {
  contents_ = std::make_shared<const StackContents>(std::move(contents));
  shown_->setContents(contents_);
}

void FloorStack::setSelected(std::optional<RouteMark> selected) {
  if (selected == selected_) return;
  selected_ = std::move(selected);
  if (!isShown()) return;
  StackContents contents = *contents_;
  contents.selected = selected_;
  show(std::move(contents));
}

std::shared_ptr<const FloorLabels> FloorStack::symbols(const MapTheme& theme,
                                                       const guidance::Closures& closures) {
  if (!isOn_ || share_ < 1) return nullptr;
  if (!symbols_)
    symbols_ = stackSymbols(*map_->venue, contents_->stack, cover_, theme,
                            theme.sizes.icon * std::max(leastSymbols, outlineShare()), closures);
  return symbols_;
}

bool FloorStack::isOutdated() const { return isOn_ && levels_.lineCount() != routes_.size(); }

}  // namespace orivanta
