#include "Apps/Viewer/Walker.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Node.hpp"

namespace orivanta::viewer {

namespace {

// Returns the length of a leg, in meters, before the node with an index. Rides have no length.
double metersBefore(const guidance::Leg& leg, std::size_t node) {
  double before = 0;
  double whole = 0;
  for (std::size_t i = 1; i < leg.nodes.size(); ++i) {
    whole +=
        std::hypot(leg.nodes[i]->x - leg.nodes[i - 1]->x, leg.nodes[i]->y - leg.nodes[i - 1]->y);
    if (i <= node) before = whole;
  }
  return whole > 0 ? leg.meters * before / whole : 0;
}

}  // namespace

Walker::Walker(const guidance::Guide& guide, guidance::Itinerary itinerary)
    : follower_(guide, std::move(itinerary)), walk_(follower_.itinerary()), point_(walk_.at(0)) {
  for (const guidance::Step& step : follower_.steps())
    stepStarts_.push_back(metersBefore(follower_.itinerary().legs[step.leg], step.first));
}

void Walker::advance(double time) {
  const double before = std::exchange(time_, time).value_or(time);
  if (isPaused_) return;
  seconds_ = std::min(seconds_ + (time - before) * speedUp, walk_.seconds());
  point_ = walk_.at(seconds_);
  follower_.update(point_.position, seconds_);
}

graphics::Vector3 Walker::position() const {
  return {static_cast<float>(point_.position.x), static_cast<float>(point_.position.y),
          static_cast<float>(point_.z)};
}

// The text of an instruction includes the walk to the next one, so it is shown until that begins.
std::size_t Walker::step() const {
  constexpr double lead = 1.0;  // meters
  const guidance::Progress& progress = follower_.progress();
  const auto& steps = follower_.steps();
  std::size_t current = 0;
  for (std::size_t i = 1; i < steps.size(); ++i)
    if (steps[i].leg < progress.leg ||
        (steps[i].leg == progress.leg && stepStarts_[i] <= progress.legMeters + lead))
      current = i;
  return current;
}

}  // namespace orivanta::viewer
