// Draws a visitor's position.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/MapPosition.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// A dot with a disc for the accuracy and a cone for the heading. They are drawn over the scene,
/// which therefore is not drawn again when the position changes. Used within a transaction.
class PositionDot {
 public:
  /// Draws a position on the current floor. `unitsPerMeter` is 0 if the venue has no scale; then
  /// there is no disc.
  void draw(view::Canvas& canvas, const MapView& view, const MapPosition& position,
            double unitsPerMeter, const MapTheme& theme);

  /// Draws the images again, for another theme.
  void clear() { scale_ = 0; }

 private:
  void drawImages(const MapTheme& theme, double scale);

  double scale_ = 0;  // of the images
  std::shared_ptr<const graphics::Image> dot_;
  std::shared_ptr<const graphics::Image> cone_;
  std::shared_ptr<const graphics::Image> disc_;
};

}  // namespace orivanta
