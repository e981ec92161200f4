#include "Platform/View/RotationGestureRecognizer.hpp"

#include <cmath>

namespace orivanta::view {

namespace {

constexpr double farEnough = 5.0 * 3.14159265358979323846 / 180.0;
constexpr double leastDistance = 1.0;  // points

bool tellsAngle(graphics::Point span) { return std::hypot(span.x, span.y) >= leastDistance; }

}  // namespace

void RotationGestureRecognizer::rebase() { last_ = span(); }

// The angle between the two spans, from their dot and cross products. Clockwise is positive, since
// y points down.
bool RotationGestureRecognizer::follow() {
  const graphics::Point now = span();
  if (tellsAngle(now)) {
    if (tellsAngle(last_))
      rotation_ += std::atan2(last_.x * now.y - last_.y * now.x, last_.x * now.x + last_.y * now.y);
    last_ = now;
  }
  return std::abs(rotation_) >= farEnough;
}

}  // namespace orivanta::view
