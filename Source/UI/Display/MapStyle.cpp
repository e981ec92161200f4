#include "Source/UI/Display/MapStyle.hpp"

#include <utility>

#include "Source/UI/Display/Styled/StyledMap.hpp"

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

}  // namespace orivanta
