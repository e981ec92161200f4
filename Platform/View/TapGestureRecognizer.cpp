#include "Platform/View/TapGestureRecognizer.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta::view {

namespace {

constexpr double longestTouch = 0.75;      // seconds
constexpr double longestPause = 0.35;      // seconds
constexpr double farthestMovement = 10.0;  // points
constexpr double farthestTap = 40.0;       // points

double distance(graphics::Point a, graphics::Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

}  // namespace

void TapGestureRecognizer::fingerLanded(double time) {
  mostFingers_ = std::max(mostFingers_, fingers().size());
  if (mostFingers_ > numberOfTouchesRequired) return setState(GestureState::failed);
  if (fingers().size() > 1) return;
  const graphics::Point place = fingers().front().position;
  if (time - lastTapTime_ > longestPause || distance(place, lastTapPlace_) > farthestTap)
    tapCount_ = 0;
  lastTapPlace_ = place;
}

void TapGestureRecognizer::fingersMoved() {
  for (const Finger& finger : fingers())
    if (distance(finger.position, finger.start) > farthestMovement)
      return setState(GestureState::failed);
}

void TapGestureRecognizer::fingerLeft(const Finger& finger, double time, bool canceled) {
  if (canceled || time - finger.startTime > longestTouch) return setState(GestureState::failed);
  if (!fingers().empty()) return;
  if (mostFingers_ < numberOfTouchesRequired) return setState(GestureState::failed);
  lastTapTime_ = time;
  if (++tapCount_ >= numberOfTapsRequired) setState(GestureState::ended);
}

// Between the taps of a multiple tap nothing is decided yet, so the count is kept.
void TapGestureRecognizer::reset() {
  if (state() != GestureState::possible) tapCount_ = 0;
  mostFingers_ = 0;
}

}  // namespace orivanta::view
