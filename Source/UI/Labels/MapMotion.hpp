// How the map moves in the view.
// Private header.
#pragma once

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// How far points that move with the map go in some time, as an affine function of their position.
struct MapWay {
  graphics::Point middle;          // of the points of the motion
  graphics::Point way;             // of the middle
  graphics::Point alongX, alongY;  // the change of the way for each point

  /// Returns a rectangle after this time, if its anchor moves with the map.
  graphics::Rect after(const graphics::Rect& rect, graphics::Point anchor) const {
    const double x = anchor.x - middle.x;
    const double y = anchor.y - middle.y;
    return {{rect.origin.x + way.x + alongX.x * x + alongY.x * y,
             rect.origin.y + way.y + alongX.y * x + alongY.y * y},
            rect.size};
  }
};

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

  /// Returns how far points go in some seconds if the map goes on moving in the same way. They
  /// stay where they are before `solve`.
  MapWay in(double seconds) const;

 private:
  double count_ = 0;
  graphics::Point sum_, velocity_, byX_, byY_;
  double xx_ = 0, xy_ = 0, yy_ = 0;
  graphics::Point middle_, mean_;    // the position and the velocity of the middle
  graphics::Point alongX_, alongY_;  // the change of the velocity for each point
};

}  // namespace orivanta
