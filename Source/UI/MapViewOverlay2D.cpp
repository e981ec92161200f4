#include "Source/UI/MapViewOverlay2D.hpp"

#include <fmt/format.h>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Source/UI/MapViewMarker2D.hpp"

namespace orivanta {

MapViewOverlay2D::MapViewOverlay2D(graphics::Size size) : Scene(size) {}

std::shared_ptr<MapViewOverlay2D> MapViewOverlay2D::make(graphics::Size size) {
  return std::shared_ptr<MapViewOverlay2D>(new MapViewOverlay2D(size));
}

std::shared_ptr<MapViewOverlay2D> MapViewOverlay2D::make(const view::Coder& coder) {
  const auto width = coder.number("width");
  const auto height = coder.number("height");
  return width && height ? make(graphics::Size{*width, *height}) : nullptr;
}

std::shared_ptr<MapViewOverlay2D> MapViewOverlay2D::make() {
  foundation::fatalError("use of unimplemented initializer 'init()' for class 'MapViewOverlay2D'");
}

void MapViewOverlay2D::setScore(int score) {
  score_ = score;
  foundation::unwrap(scoreNode).setText(fmt::format("Score: {}", score));
}

void MapViewOverlay2D::touchesBegan(std::span<const graphics::Point> touches) {
  for (const graphics::Point touch : touches) {
    const auto node = nodeAt(touch);
    if (node.get() != this && node->name() == MapViewMarker2D::MARKER_NAME)
      foundation::diagnostic("Node marker tapped");
  }
}

void MapViewOverlay2D::update(double) {}

}  // namespace orivanta
