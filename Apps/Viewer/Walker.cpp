#include "Apps/Viewer/Walker.hpp"

#include <algorithm>
#include <utility>

namespace orivanta::viewer {

Walker::Walker(const guidance::Guide& guide, guidance::Itinerary itinerary)
    : follower_(guide, std::move(itinerary)), walk_(follower_.itinerary()), point_(walk_.at(0)) {}

void Walker::advance(double time) {
  if (isPaused_) return;
  const double before = std::exchange(time_, time).value_or(time);
  seconds_ = std::min(seconds_ + (time - before) * speedUp, walk_.seconds());
  point_ = walk_.at(seconds_);
  follower_.update(point_.position, seconds_);
}

graphics::Vector3 Walker::scenePosition() const {
  return {static_cast<float>(point_.position.x), static_cast<float>(point_.position.y),
          static_cast<float>(point_.z)};
}

}  // namespace orivanta::viewer
