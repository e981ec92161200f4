#include "Apps/Viewer/Walker.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Node.hpp"

namespace orivanta::viewer {

namespace {

// The weight of a part of a leg: its length, or for a ride the same for all parts.
double shareOf(const guidance::Leg& leg, std::size_t index) {
  if (leg.kind == guidance::Leg::Kind::ride) return 1.0;
  const Node& from = *leg.nodes[index - 1];
  const Node& to = *leg.nodes[index];
  return std::hypot(to.x - from.x, to.y - from.y);
}

}  // namespace

Walker::Walker(const guidance::Guide& guide, guidance::Itinerary itinerary)
    : follower_(guide, std::move(itinerary)) {
  for (const guidance::Leg& leg : follower_.itinerary().legs) addLeg(leg);
  addStepStarts();
  advance(0);
  start_.reset();
}

void Walker::addStepStarts() {
  for (const guidance::Step& step : follower_.steps()) {
    const guidance::Leg& leg = follower_.itinerary().legs[step.leg];
    double before = 0.0;
    double whole = 0.0;
    for (std::size_t i = 1; i < leg.nodes.size(); ++i) {
      whole += shareOf(leg, i);
      if (i <= step.first) before = whole;
    }
    stepStarts_.push_back(whole > 0.0 ? leg.meters * before / whole : 0.0);
  }
}

void Walker::addLeg(const guidance::Leg& leg) {
  const double start = points_.empty() ? 0.0 : points_.back().seconds;
  double whole = 0.0;
  for (std::size_t i = 1; i < leg.nodes.size(); ++i) whole += shareOf(leg, i);
  double done = 0.0;
  points_.push_back({leg.nodes.front(), start});
  for (std::size_t i = 1; i < leg.nodes.size(); ++i) {
    done += shareOf(leg, i);
    points_.push_back({leg.nodes[i], start + (whole > 0.0 ? leg.seconds * done / whole : 0.0)});
  }
}

void Walker::advance(double time) {
  if (!start_) start_ = time;
  const double seconds = (time - *start_) * speedUp;
  const auto next = std::find_if(points_.begin() + 1, points_.end(),
                                 [&](const Point& point) { return point.seconds > seconds; });
  isDone_ = next == points_.end();
  const Node& from = *(next - 1)->node;
  const Node& to = isDone_ ? from : *next->node;
  const double share =
      isDone_ ? 0.0 : (seconds - (next - 1)->seconds) / (next->seconds - (next - 1)->seconds);
  const auto between = [&](double first, double last) { return first + share * (last - first); };
  floor_ = from.map;
  const double x = between(from.x, to.x);
  const double y = between(from.y, to.y);
  position_ = {static_cast<float>(x), static_cast<float>(y),
               static_cast<float>(from.map == to.map ? between(from.z, to.z) : from.z)};
  follower_.update({floor_, x, y}, seconds);
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
