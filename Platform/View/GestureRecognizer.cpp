#include "Platform/View/GestureRecognizer.hpp"

#include <algorithm>

#include "Platform/View/TouchDispatcher.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

void GestureRecognizer::addTarget(std::string name, Action action) {
  targets_.emplace_back(std::move(name), std::move(action));
}

std::vector<std::string> GestureRecognizer::actionNames() const {
  std::vector<std::string> names;
  for (const auto& [name, action] : targets_) names.push_back(name);
  return names;
}

void GestureRecognizer::setState(GestureState state) {
  const bool begins = state_ == GestureState::possible &&
                      (state == GestureState::began || state == GestureState::ended);
  if (begins && dispatcher_ != nullptr && !dispatcher_->claim(*this)) state = GestureState::failed;
  state_ = state;
  if (state == GestureState::possible || state == GestureState::failed) return;
  // Targets that an action adds are not called this time.
  const std::size_t count = targets_.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Action action = targets_[i].second;
    if (action) action(*this);
  }
}

graphics::Point GestureRecognizer::location(const View& in) const {
  return topmostView(in).convert(centroid_, in);
}

void GestureRecognizer::receive(std::span<const Touch> touches, TouchDispatcher& dispatcher) {
  dispatcher_ = &dispatcher;
  switch (touches.front().phase) {
    case TouchPhase::began:
      land(touches.front());
      break;
    case TouchPhase::moved:
      move(touches);
      break;
    case TouchPhase::ended:
    case TouchPhase::canceled:
      leave(touches.front());
      break;
  }
  dispatcher_ = nullptr;
}

void GestureRecognizer::land(const Touch& touch) {
  if (find(touch.identifier) != fingers_.end()) return;
  fingers_.push_back({touch.identifier, touch.position, touch.position, touch.time});
  updateCentroid();
  if (isOpen()) fingerLanded(touch.time);
}

void GestureRecognizer::move(std::span<const Touch> touches) {
  for (const Touch& touch : touches)
    if (const auto finger = find(touch.identifier); finger != fingers_.end())
      finger->position = touch.position;
  updateCentroid();
  if (isOpen() && !fingers_.empty()) fingersMoved();
}

void GestureRecognizer::leave(const Touch& touch) {
  const auto place = find(touch.identifier);
  if (place == fingers_.end()) return;
  const Finger finger = *place;
  fingers_.erase(place);
  updateCentroid();
  if (isOpen()) fingerLeft(finger, touch.time, touch.phase == TouchPhase::canceled);
  if (fingers_.empty()) startOver();
}

std::vector<GestureRecognizer::Finger>::iterator GestureRecognizer::find(std::uint64_t identifier) {
  return std::find_if(fingers_.begin(), fingers_.end(),
                      [&](const Finger& finger) { return finger.identifier == identifier; });
}

void GestureRecognizer::updateCentroid() {
  if (fingers_.empty()) return;
  graphics::Point sum;
  for (const Finger& finger : fingers_)
    sum = {sum.x + finger.position.x, sum.y + finger.position.y};
  const auto count = static_cast<double>(fingers_.size());
  centroid_ = {sum.x / count, sum.y / count};
}

void GestureRecognizer::startOver() {
  reset();
  state_ = GestureState::possible;
}

void GestureRecognizer::cancel() {
  if (isRunning()) setState(GestureState::canceled);
  forgetFingers();
}

void GestureRecognizer::forgetFingers() {
  fingers_.clear();
  startOver();
}

}  // namespace orivanta::view
