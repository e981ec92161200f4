#include "Platform/View/PinchGestureRecognizer.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta::view {

namespace {
constexpr double farEnough = 8.0;      // points
constexpr double leastDistance = 1.0;  // points
}  // namespace

double PinchGestureRecognizer::distance() const {
  return std::max(leastDistance, std::hypot(span().x, span().y));
}

void PinchGestureRecognizer::clear() {
  scale_ = 1.0;
  change_ = 0.0;
}

void PinchGestureRecognizer::rebase() { last_ = distance(); }

bool PinchGestureRecognizer::follow() {
  const double now = distance();
  scale_ *= now / last_;
  change_ += now - last_;
  last_ = now;
  return std::abs(change_) >= farEnough;
}

}  // namespace orivanta::view
