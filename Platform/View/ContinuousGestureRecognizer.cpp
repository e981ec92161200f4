#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

graphics::Point ContinuousGestureRecognizer::span() const {
  if (fingers().size() < 2) return {};
  const graphics::Point first = fingers()[0].position;
  const graphics::Point second = fingers()[1].position;
  return {second.x - first.x, second.y - first.y};
}

void ContinuousGestureRecognizer::fingerLanded(double /*time*/) {
  numberChanged(GestureState::ended);
}

void ContinuousGestureRecognizer::fingerLeft(const Finger& /*finger*/, double /*time*/,
                                             bool canceled) {
  numberChanged(canceled ? GestureState::canceled : GestureState::ended);
}

void ContinuousGestureRecognizer::numberChanged(GestureState outOfRange) {
  if (!isRunning()) clear();
  rebase();
  if (isRunning() && !takes(fingers().size())) setState(outOfRange);
}

void ContinuousGestureRecognizer::fingersMoved() {
  if (!takes(fingers().size())) return;
  const bool isFar = follow();
  if (isRunning()) {
    setState(GestureState::changed);
  } else if (isFar) {
    clear();
    setState(GestureState::began);
  }
}

void ContinuousGestureRecognizer::reset() {
  clear();
  rebase();
}

}  // namespace orivanta::view
