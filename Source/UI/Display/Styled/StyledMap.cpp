#include "Source/UI/Display/Styled/StyledMap.hpp"

#include <utility>
#include <vector>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Source/Map.hpp"
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
  labels_.attach(*host_.view);
  route_.attach(*host_.view, labels_);
  overlay_->setRoute(&route_);
  overlay_->setFurniture(furniture_);
  overlay_->setPosition(position_);
  restyle();
  followed_.update(*host_.view, position_);
}

void StyledMap::detach() {
  if (!host_.view) return;
  const graphics::Transaction transaction;
  fills_.clear();
  work_.clear();
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
  fills_.clear();
  work_.clear();
  labels_.clear();
  restyle();
}

void StyledMap::restyle() {
  if (!host_.view) return;
  const graphics::Transaction transaction;
  look_.apply(*host_.view, host_.sun, *theme_);
  logo_.apply(host_.logo, *theme_);
  overlay_->setTheme(theme_);
  overlay_->venueChanged();
  route_.show(theme_);
  const auto& venue = host_.view->venue;
  if (!venue || !venue->maps) return;
  for (const auto& map : *venue->maps) styleFloor(*map);
  labels_.show(theme_);
}

void StyledMap::styleFloor(const Map& map) {
  if (!map.mapObject) return;
  const Venue& venue = *host_.view->venue;
  const std::vector<ShapeRole> roles = shapeRoles(map, venue, theme_->words);
  fills_.set(map, roles, *theme_);
  work_.set(map, venue, roles, *theme_);
}

bool StyledMap::isReady() const {
  const auto& floor = host_.view ? host_.view->currentMap() : nullptr;
  return !floor || (work_.isReady(*floor) && labels_.isReady());
}

void StyledMap::finish() {
  if (host_.view && host_.view->currentMap()) work_.finish(*host_.view->currentMap());
  labels_.finish();
}

void StyledMap::sceneStarted(std::shared_ptr<scene::Node> sun) {
  host_.sun = std::move(sun);
  look_.apply(*host_.view, host_.sun, *theme_);
  overlay_->venueChanged();
}

void StyledMap::addFloor(const Map& map) {
  if (host_.view->venue && !fills_.contains(map)) styleFloor(map);
  labels_.show(theme_);
  route_.show(theme_);
  followed_.update(*host_.view, position_);
}

void StyledMap::setHighlighted(scene::Node& shape, bool isHighlighted) {
  fills_.setHighlighted(shape, isHighlighted);
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
  followed_.update(*host_.view, position_);
}

void StyledMap::setFollowing(bool isFollowing) {
  followed_.setOn(isFollowing);
  if (host_.view) followed_.update(*host_.view, position_);
}

bool StyledMap::isFollowing() const { return followed_.isOn(host_.view); }

}  // namespace orivanta
