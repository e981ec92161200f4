#include "Platform/View/PanGestureRecognizer.hpp"

#include <cmath>

namespace orivanta::view {

namespace {
constexpr double farEnough = 10.0;  // points
}

bool PanGestureRecognizer::takes(std::size_t fingerCount) const {
  return fingerCount > 0 && fingerCount >= minimumNumberOfTouches &&
         fingerCount <= maximumNumberOfTouches;
}

bool PanGestureRecognizer::follow() {
  const graphics::Point middle = centroid();
  translation_.x += middle.x - last_.x;
  translation_.y += middle.y - last_.y;
  last_ = middle;
  return std::hypot(translation_.x, translation_.y) >= farEnough;
}

}  // namespace orivanta::view
