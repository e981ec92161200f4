#include "Source/UI/Display/Styled/StackLevels.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/RouteLine.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using graphics::Transaction;

namespace {

constexpr float fadedOpacity = 0.3F;

}  // namespace

void StackLevels::build(const MapView& view, const StackLayout& layout, Lines lines,
                        const MapTheme& theme) {
  const Transaction transaction;
  clear();
  lines_ = std::move(lines);
  group_ = scene::Node::make();
  for (const StackedFloor& floor : layout.stack.floors)
    add(floor, layout.shapes.at(floor.floor.get()), view, theme);
  view.sceneView->scene()->rootNode()->addChild(group_);
}

void StackLevels::add(const StackedFloor& floor, const StackShapes& shapes, const MapView& view,
                      const MapTheme& theme) {
  // An empty slab would hide the floors below for nothing.
  const bool isFaded = !floor.isWhole || shapes.contents().isEmpty();
  Level level{floor.floor, floor.offset, isFaded ? fadedOpacity : 1, scene::Node::make()};
  const Map& map = *floor.floor;
  if (floor.floor != view.currentMap()) {
    level.clone = std::make_unique<FloorClone>(map, shapes.leftOut);
    if (!floor.isWhole)
      level.clone->reduce(shapes.roles, theme, guidance::unitsPerMeterOf(*view.venue).value_or(1));
    level.carrier->addChild(level.clone->sharedNode());
  } else {
    for (const auto& shape : shapes.leftOut) {
      if (shape->isHidden()) continue;
      shape->setHidden(true);
      hidden_.push_back(shape);
      model_ = map.mapObject;
    }
    hideSlabEdges();
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

void StackLevels::clear() {
  const Transaction transaction;
  showHidden();
  if (group_) group_->removeFromParent();
  group_.reset();
  levels_.clear();
  lines_.clear();
}

void StackLevels::showHidden() {
  for (const auto& shape : hidden_) shape->setHidden(false);
  hidden_.clear();
  if (model_) model_->setRibbons(model_->ribbons(), withSlabEdges(model_->ribbonLook(), true));
  model_.reset();
}

std::optional<double> StackLevels::change(const std::shared_ptr<Map>& current,
                                          const std::shared_ptr<Map>& former) {
  const auto found = std::find_if(levels_.begin(), levels_.end(),
                                  [&](const Level& level) { return level.floor == current; });
  if (found == levels_.end()) return std::nullopt;
  const Transaction transaction;
  const double rise = found->offset;
  for (Level& level : levels_) {
    level.offset -= rise;
    if (level.floor == current) level.clone.reset();
    if (level.floor != former) continue;
    level.clone = std::make_unique<FloorClone>(*former, hidden_);
    level.clone->setOutlineShare(outlineShare_);
    showHidden();
    level.carrier->addChild(level.clone->sharedNode());
  }
  return rise;
}

void StackLevels::setShare(double share) {
  const Transaction transaction;
  const auto opacity = static_cast<float>(share);
  for (const Level& level : levels_) {
    level.carrier->setPosition(scene::Axis::z, static_cast<float>(level.offset * share));
    if (level.clone) level.clone->node().setOpacity(level.opacity * opacity);
    for (const auto& line : level.lines) line->setOpacity(opacity);
  }
}

void StackLevels::setOutlineShare(double share) {
  outlineShare_ = static_cast<float>(share);
  for (const Level& level : levels_)
    if (level.clone) level.clone->setOutlineShare(outlineShare_);
}

// Routes are drawn anew after many changes, then with another object for the same line.
int StackLevels::indexOf(const RouteLine& line) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const auto& known) {
    const auto points = known->points();
    return std::equal(points.begin(), points.end(), line.points().begin(), line.points().end());
  });
  return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

// The lines have no arrows: most of them would be too short.
void StackLevels::showRoutes(std::span<const RouteContents> routes, const MapTheme& theme) {
  const Transaction transaction;
  for (const Level& level : levels_) {
    for (const auto& line : level.lines) line->setHidden(true);
    for (const RouteContents& route : routes) {
      const int index = indexOf(*route.line);
      if (index < 0) continue;
      const auto& line = level.lines[static_cast<std::size_t>(index)];
      line->setHidden(false);
      line->setRibbons(line->ribbons(), routeLook(theme, route.color.value_or(theme.colors.route),
                                                  {0, 1}, route.passed, 0));
    }
  }
}

void StackLevels::copyLooks(const MapTheme& theme) {
  for (const Level& level : levels_)
    if (level.clone) level.clone->copyLook(theme);
}

void StackLevels::copyColor(const scene::Node& shape) {
  for (const Level& level : levels_)
    if (level.clone) level.clone->copyColor(shape);
}

// The outlines of the shown floor may be computed, or get another theme, while floors are stacked.
void StackLevels::hideSlabEdges() const {
  if (!model_ || !model_->ribbons()) return;
  auto look = withSlabEdges(model_->ribbonLook(), false);
  if (!(look == model_->ribbonLook())) model_->setRibbons(model_->ribbons(), std::move(look));
}

void StackLevels::copyOutlines() {
  hideSlabEdges();
  for (const Level& level : levels_)
    if (level.clone) level.clone->copyOutlines();
}

FloorList StackLevels::floors() const {
  FloorList floors;
  floors.reserve(levels_.size());
  for (const Level& level : levels_) floors.push_back(level.floor);
  return floors;
}

std::shared_ptr<Map> StackLevels::floorOf(const scene::Node& node) const {
  for (auto above = node.parent(); above; above = above->parent())
    for (const Level& level : levels_)
      if (level.carrier == above) return level.floor;
  return nullptr;
}

}  // namespace orivanta
