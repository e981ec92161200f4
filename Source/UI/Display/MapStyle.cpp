#include "Source/UI/Display/MapStyle.hpp"

#include <utility>

#include "Source/UI/Display/Styled/FirstViewing.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

std::shared_ptr<MapStyle> MapStyle::make(std::shared_ptr<const MapTheme> theme) {
  return std::shared_ptr<MapStyle>(new MapStyle(std::move(theme)));
}

MapStyle::MapStyle(std::shared_ptr<const MapTheme> theme)
    : styled_(std::make_unique<StyledMap>(std::move(theme))) {}

MapStyle::~MapStyle() = default;

void MapStyle::setTheme(std::shared_ptr<const MapTheme> theme) {
  styled_->setTheme(std::move(theme));
}

const std::shared_ptr<const MapTheme>& MapStyle::theme() const { return styled_->theme(); }

void MapStyle::setLabels(bool areShown) { styled_->labels().setShown(areShown); }

void MapStyle::setStill(bool isStill) { styled_->setStill(isStill); }

void MapStyle::setReducedMotion(bool isReduced) { styled_->setReducedMotion(isReduced); }

void MapStyle::setStacked(bool isStacked) { styled_->setStacked(isStacked); }

bool MapStyle::isStacked() const { return styled_->isStacked(); }

void MapStyle::setModelColors(bool hasModelColors) { styled_->setModelColors(hasModelColors); }

void MapStyle::setTexts(const guidance::InterfaceTexts& texts) { styled_->setTexts(texts); }

void MapStyle::setSelected(std::shared_ptr<Location> place) {
  styled_->setSelected(std::move(place));
}

void MapStyle::setClosures(const guidance::Closures& closures) { styled_->setClosures(closures); }

void MapStyle::setCovered(std::vector<graphics::Rect> covered) {
  styled_->labels().setCovered(std::move(covered));
}

bool MapStyle::isReady() const { return styled_->isReady(); }

void MapStyle::finish() { styled_->finish(); }

std::shared_ptr<Map> MapStyle::firstFloor(const Venue& venue, const KindWords& words) {
  return firstFloorOf(venue, words);
}

void MapStyle::showFirstView(CameraMotion motion) {
  if (styled_->view() == nullptr) return;
  if (isStacked()) return styled_->frameStack(motion);
  showFirstRegion(*styled_->view(), theme()->words, motion);
}

void MapStyle::setFurniture(const MapFurniture& furniture) { styled_->setFurniture(furniture); }

const MapFurniture& MapStyle::furniture() const { return styled_->furniture(); }

void MapStyle::setPosition(std::optional<MapPosition> position) {
  styled_->setPosition(std::move(position));
}

void MapStyle::setFollowing(bool isFollowing) { styled_->setFollowing(isFollowing); }

bool MapStyle::isFollowing() const { return styled_->isFollowing(); }

}  // namespace orivanta
