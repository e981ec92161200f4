#include "Source/UI/Display/Styled/StyledRoute.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/Display/Styled/StyledLabels.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using graphics::Transaction;

namespace {

constexpr double arrowPace = 24;          // points per second
constexpr double longestStep = 0.1;       // seconds; after a pause, arrows do not leap
constexpr double rememberedPhase = 1024;  // distances between arrows
constexpr double mergedWithinMeters = 0.02;
constexpr double usualUnitsPerMeter = 10;  // until the labels of a venue without a scale are made

graphics::Rect freeRect(const MapView& view) {
  const graphics::Size size = view.sceneView->bounds().size;
  const Insets& insets = view.camera().insets();
  return {{insets.left, insets.top},
          {std::max(0.0, size.width - insets.left - insets.right),
           std::max(0.0, size.height - insets.top - insets.bottom)}};
}

}  // namespace

struct StyledRoute::Shown {
  const void* owner;
  RouteContents contents;
  std::vector<scene::Ribbons::Line> lines{};        // on the floor
  std::shared_ptr<const scene::Ribbons> ribbons{};  // null if nothing is on the floor
  std::shared_ptr<scene::Node> node = scene::Node::make();
};

StyledRoute::StyledRoute() = default;
StyledRoute::~StyledRoute() { detach(); }

void StyledRoute::attach(MapView& view, StyledLabels& labels) {
  view_ = &view;
  labels_ = &labels;
}

void StyledRoute::detach() {
  if (view_ == nullptr) return;
  const Transaction transaction;
  for (const auto& route : routes_) route->node->removeFromParent();
  routes_.clear();
  labels_->setRoute({});
  labels_->setMarked({});
  labels_->setMarks({});
  marks_.clear();
  view_ = nullptr;
  labels_ = nullptr;
  theme_ = nullptr;
}

void StyledRoute::show(const std::shared_ptr<const MapTheme>& theme) {
  const Transaction transaction;
  theme_ = theme;
  floor_ = view_->currentMap();
  unitsPerMeter_ =
      view_->venue ? guidance::unitsPerMeterOf(*view_->venue) : std::optional<double>();
  for (const auto& route : routes_) showRibbons(*route);
  update();
}

void StyledRoute::showRibbons(Shown& shown) const {
  const auto scene = view_->sceneView->scene();
  shown.lines.clear();
  if (floor_)
    shown.lines = shown.contents.line->linesOn(*floor_, shown.contents.first, shown.contents.end);
  shown.ribbons =
      shown.lines.empty()
          ? nullptr
          : scene::Ribbons::make(shown.lines, mergedWithinMeters * unitsPerMeter_.value_or(1));
  shown.node->removeFromParent();
  if (scene && shown.ribbons) scene->rootNode()->addChild(shown.node);
  updateLook(shown);
}

void StyledRoute::updateLook(const Shown& shown) const {
  if (!shown.ribbons || !theme_) return;
  shown.node->setRibbons(
      shown.ribbons, routeLook(*theme_, shown.contents.color.value_or(theme_->colors.route), scale_,
                               shown.contents.passed, phase_));
}

// Passes on what is on the floor.
void StyledRoute::update() {
  if (!theme_) return;
  std::vector<RouteSegment> segments;
  std::vector<std::vector<graphics::Vector3>> lines;
  for (const auto& route : routes_)
    for (const auto& line : route->lines) {
      lines.push_back(line.points);
      for (std::size_t i = 1; i < line.points.size(); ++i)
        segments.push_back({line.points[i - 1], line.points[i]});
    }
  auto marks = marksOnFloor();
  std::vector<std::shared_ptr<Location>> marked;
  for (const RouteMark& mark : marks)
    if (mark.place && (mark.form == RouteMark::Form::floorChange || !mark.text.empty()))
      marked.push_back(mark.place);
  marks_.set(std::move(marks), std::move(lines), theme_);
  labels_->setRoute(std::move(segments));
  labels_->setMarked(std::move(marked));
  view::View::setNeedsFrame();
}

std::vector<RouteMark> StyledRoute::marksOnFloor() const {
  std::vector<RouteMark> marks;
  for (const auto& route : routes_)
    for (const RouteMark& mark : route->contents.marks)
      if (mark.at.floor == floor_) marks.push_back(mark);
  return marks;
}

StyledRoute::Shown* StyledRoute::find(const void* owner) const {
  const auto found = std::find_if(routes_.begin(), routes_.end(),
                                  [&](const auto& route) { return route->owner == owner; });
  return found == routes_.end() ? nullptr : found->get();
}

void StyledRoute::set(const void* owner, RouteContents contents) {
  const Transaction transaction;
  Shown* shown = find(owner);
  if (shown == nullptr) {
    routes_.push_back(std::make_unique<Shown>(Shown{owner, {}}));
    shown = routes_.back().get();
  }
  shown->contents = std::move(contents);
  showRibbons(*shown);
  update();
}

void StyledRoute::setPassed(const void* owner, double passed) {
  const Transaction transaction;
  Shown* const shown = find(owner);
  if (shown == nullptr) return;
  shown->contents.passed = passed;
  updateLook(*shown);
}

void StyledRoute::remove(const void* owner) {
  const Transaction transaction;
  Shown* const shown = find(owner);
  if (shown == nullptr) return;
  shown->node->removeFromParent();
  std::erase_if(routes_, [&](const auto& route) { return route.get() == shown; });
  update();
}

void StyledRoute::setReducedMotion(bool isReduced) {
  const Transaction transaction;
  isReduced_ = isReduced;
  view::View::setNeedsFrame();
}

void StyledRoute::setStill(bool isStill) {
  const Transaction transaction;
  isStill_ = isStill;
  view::View::setNeedsFrame();
}

std::vector<const RouteContents*> StyledRoute::routes() const {
  std::vector<const RouteContents*> all;
  all.reserve(routes_.size());
  for (const auto& route : routes_) all.push_back(&route->contents);
  return all;
}

std::optional<RouteMark> StyledRoute::markAt(graphics::Point point) const {
  const Transaction transaction;
  const RouteMark* const mark = marks_.at(point);
  return mark == nullptr ? std::nullopt : std::optional(*mark);
}

bool StyledRoute::isAnimating() const {
  const Transaction transaction;
  if (isReduced_ || isStill_ || !theme_) return false;
  return std::any_of(routes_.begin(), routes_.end(), [](const auto& route) {
    const auto look = route->node->ribbonLook().route;
    return route->ribbons && look && look->arrowSpacing > 0;
  });
}

void StyledRoute::prepareFrame(double time) {
  const auto viewpoint = view_ == nullptr ? std::nullopt : view_->sceneView->viewpoint();
  if (!viewpoint || !theme_ || !view_->camera().isReady()) return;
  const double unitsPerPoint =
      view_->camera().lens().slopePerPoint() * view_->camera().pose().distance;
  const double unitsPerMeter =
      unitsPerMeter_ ? *unitsPerMeter_ : labels_->unitsPerMeter().value_or(usualUnitsPerMeter);
  scale_ = {unitsPerMeter / unitsPerPoint, unitsPerMeter};
  const double step = std::clamp(time - time_.value_or(time), 0.0, longestStep);
  time_ = time;
  if (isStill_) phase_ = arrowPace * unitsPerPoint * time;
  if (!isReduced_ && !isStill_) {
    const double whole = arrowSpacing(scale_.pointsPerMeter) * unitsPerMeter * rememberedPhase;
    phase_ = std::fmod(phase_ + arrowPace * unitsPerPoint * step, whole);
  }
  for (const auto& route : routes_) updateLook(*route);
  marks_.place(FloorProjection(*viewpoint, view_->sceneView->bounds().size), freeRect(*view_));
  labels_->setMarks(marks_.boxes());
}

void StyledRoute::draw(view::Canvas& canvas) { marks_.draw(canvas); }

}  // namespace orivanta
