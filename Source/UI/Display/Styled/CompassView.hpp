// The compass of a styled map.
#pragma once

#include <functional>
#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// A needle that points where the y axis of the map points. Receives taps; hidden at first.
class CompassView : public view::View {
 public:
  /// Length of the sides of the square that receives taps, in points.
  static constexpr double side = 44;

  /// Returns a compass that calls `tapped` after each tap.
  static std::shared_ptr<CompassView> make(std::function<void()> tapped);

  /// Null does not draw anything.
  void setTheme(std::shared_ptr<const MapTheme> theme);

  /// Sets how far the map is turned, in radians, counterclockwise. Hides the compass if the y axis
  /// points up. May be called while a frame is gathered.
  void setTurn(double turn);

  void draw(view::Canvas& canvas) override;

 private:
  void drawImages(double scale);

  std::shared_ptr<const MapTheme> theme_;
  double turn_ = 0;
  double scale_ = 0;  // of the images; 0 if they must be drawn
  std::shared_ptr<const graphics::Image> disc_;
  std::shared_ptr<const graphics::Image> needle_;
};

}  // namespace orivanta
