#include "Source/UI/Display/Styled/StyledMap.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/PlaceShapes.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

StyledMap::StyledMap(std::shared_ptr<const MapTheme> theme) : theme_(std::move(theme)) {
  foundation::unwrap(theme_);
}

void StyledMap::setTheme(std::shared_ptr<const MapTheme> theme) {
  foundation::unwrap(theme);
  theme_ = std::move(theme);
  restyle();
}

void StyledMap::attach(StyleHost host) {
  const graphics::Transaction transaction;
  host_ = std::move(host);
  overlay_ = StyleView::addTo(*host_.view);
  labels_.attach(*host_.view, [overlay = std::weak_ptr(overlay_)](double scale) {
    const auto view = overlay.lock();
    return view ? view->arrangeFurniture(scale) : std::vector<graphics::Rect>();
  });
  labels_.setClosures(closures_, texts_.text("interface.mark.closed"));
  route_.attach(*host_.view, labels_);
  overlay_->setRoute(&route_);
  stack_.attach(*host_.view);
  overlay_->setStack(stack_.view());
  route_.changed = [this] {
    if (stack_.isShown()) routesChanged();
  };
  overlay_->setFurniture(furniture_);
  overlay_->setPosition(position_);
  restyle();
  followed_.update(*host_.view, position_);
}

void StyledMap::detach() {
  if (!host_.view) return;
  const graphics::Transaction transaction;
  fade_.stop();
  route_.changed = {};
  overlay_->setStack(nullptr);
  stack_.detach();
  stackChanged();
  fills_.clear();
  work_.clear();
  selectedOutline_.clear();
  look_.restore(*host_.view);
  route_.detach();
  labels_.detach();
  logo_.restore();
  overlay_->remove();
  overlay_.reset();
  host_ = {};
}

void StyledMap::venueChanged() {
  const graphics::Transaction transaction;
  fade_.stop();
  stack_.drop(/*restoresCamera=*/true);
  stackChanged();
  fills_.clear();
  work_.clear();
  labels_.clear();
  restyle();
}

void StyledMap::restyle() {
  if (!host_.view) return;
  const graphics::Transaction transaction;
  applyLook();
  logo_.apply(host_.logo, *theme_);
  overlay_->setTheme(theme_);
  overlay_->venueChanged();
  route_.show(theme_);
  const auto& venue = host_.view->venue;
  if (!venue || !venue->maps) return;
  for (const auto& map : *venue->maps) styleFloor(*map);
  labels_.show(theme_);
  showSelected();
  stack_.copyLooks(theme_);
  stackChanged();
}

void StyledMap::styleFloor(const Map& map) {
  if (!map.mapObject || hasModelColors_) return;
  const Venue& venue = *host_.view->venue;
  const std::vector<ShapeRole> roles = shapeRoles(map, venue, theme_->words);
  colorFloor(map, roles);
  work_.set(map, venue, roles, *theme_);
}

// What is closed has the color of places of no particular kind.
void StyledMap::colorFloor(const Map& map, const std::vector<ShapeRole>& roles) {
  if (closures_.empty()) return fills_.set(map, roles, *theme_);
  std::vector<ShapeRole> marked = roles;
  const auto closed = closedShapes(*host_.view->venue, closures_);
  const auto shapes = map.mapObject->children();
  for (std::size_t i = 0; i < shapes.size(); ++i)
    if (closed.contains(shapes[i]->name().value_or(""))) marked[i].kind = FillKind::other;
  fills_.set(map, marked, *theme_);
}

bool StyledMap::isReady() const {
  const auto& floor = host_.view ? host_.view->currentMap() : nullptr;
  const FloorList stacked = stack_.floors();
  return !floor || (work_.isReady(*floor) && labels_.isReady() &&
                    std::all_of(stacked.begin(), stacked.end(),
                                [&](const auto& map) { return work_.isReady(*map); }));
}

void StyledMap::finish() {
  if (host_.view && host_.view->currentMap()) work_.finish(*host_.view->currentMap());
  for (const auto& map : stack_.floors()) work_.finish(*map);
  stack_.copyOutlines();
  labels_.finish();
}

void StyledMap::sceneStarted(std::shared_ptr<scene::Node> sun) {
  fade_.stop();
  stack_.drop(/*restoresCamera=*/false);
  stackChanged();
  host_.sun = std::move(sun);
  applyLook();
  overlay_->venueChanged();
}

void StyledMap::addFloor(const Map& map) {
  if (host_.view->venue && !fills_.contains(map)) {
    styleFloor(map);
    stack_.rebuild(theme_);
    stackChanged();
  }
  labels_.show(theme_);
  route_.show(theme_);
  showSelected();
  if (!stack_.isOn()) followed_.update(*host_.view, position_);
}

void StyledMap::setHighlighted(scene::Node& shape, bool isHighlighted) {
  fills_.setHighlighted(shape, isHighlighted);
  stack_.copyColor(shape);
}

void StyledMap::setFurniture(const MapFurniture& furniture) {
  furniture_ = furniture;
  if (overlay_) overlay_->setFurniture(furniture_);
}

void StyledMap::setPosition(std::optional<MapPosition> position) {
  if (position) foundation::unwrap(position->floor);
  position_ = std::move(position);
  if (!host_.view) return;
  overlay_->setPosition(position_);
  if (!stack_.isOn()) followed_.update(*host_.view, position_);
}

void StyledMap::setFollowing(bool isFollowing) {
  followed_.setOn(isFollowing);
  if (host_.view && !stack_.isOn()) followed_.update(*host_.view, position_);
}

bool StyledMap::isFollowing() const { return followed_.isOn(host_.view); }

void StyledMap::setStill(bool isStill) {
  isStill_ = isStill;
  labels_.setStill(isStill);
  route_.setStill(isStill);
}

void StyledMap::setReducedMotion(bool isReduced) {
  isReduced_ = isReduced;
  route_.setReducedMotion(isReduced);
}

CameraMotion StyledMap::motion() const {
  return isStill_ || isReduced_ ? CameraMotion::atOnce : CameraMotion::glide;
}

void StyledMap::prepareFrame(double time) {
  route_.prepareFrame(time);
  stack_.copyOutlines();
  if (!fade_.isRunning()) return;
  fade_.advance(time);
  stack_.view()->setFading(fade_.isRunning());
}

void StyledMap::setModelColors(bool hasModelColors) {
  if (hasModelColors == hasModelColors_) return;
  hasModelColors_ = hasModelColors;
  if (!host_.view) return;
  const graphics::Transaction transaction;
  fills_.clear();
  work_.clear();
  look_.restore(*host_.view);
  restyle();
}

void StyledMap::applyLook() { look_.apply(*host_.view, host_.sun, *theme_, !hasModelColors_); }

}  // namespace orivanta
