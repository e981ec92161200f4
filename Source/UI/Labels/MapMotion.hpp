// How the map moves in the view.
// Private header.
#pragma once

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// The velocities of points that move with the map, as an affine function of their position. Points
/// of the view, y downward, per second.
class MapMotion {
 public:
  /// Adds a point that has moved. Call `solve` after the last one.
  void add(graphics::Point point, graphics::Point velocity) {
    ++count_;
    sum_ = {sum_.x + point.x, sum_.y + point.y};
    velocity_ = {velocity_.x + velocity.x, velocity_.y + velocity.y};
    xx_ += point.x * point.x;
    xy_ += point.x * point.y;
    yy_ += point.y * point.y;
    byX_ = {byX_.x + point.x * velocity.x, byX_.y + point.x * velocity.y};
    byY_ = {byY_.x + point.y * velocity.x, byY_.y + point.y * velocity.y};
  }

  /// Fits the function to the points by least squares.
  void solve();

  /// Returns the velocity at a point; 0 before `solve`.
  graphics::Point at(graphics::Point point) const {
    const double x = point.x - middle_.x;
    const double y = point.y - middle_.y;
    return {mean_.x + alongX_.x * x + alongY_.x * y, mean_.y + alongX_.y * x + alongY_.y * y};
  }

  /// Returns a rectangle after some seconds, if its anchor moves with the map and the map goes on
  /// moving in the same way.
  graphics::Rect after(const graphics::Rect& rect, graphics::Point anchor, double seconds) const;

 private:
  double count_ = 0;
  graphics::Point sum_, velocity_, byX_, byY_;
  double xx_ = 0, xy_ = 0, yy_ = 0;
  graphics::Point middle_, mean_;    // the position and the velocity of the middle
  graphics::Point alongX_, alongY_;  // the change of the velocity for each point
};

}  // namespace orivanta
