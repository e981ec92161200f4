#include "Source/Guidance/Steps/WalkLine.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

constexpr double farthest = 1e9;  // meters; beyond it, a position is a fault in the data

bool isUsable(PlanePoint point) {
  return std::abs(point.x) <= farthest && std::abs(point.y) <= farthest;  // false for NaN
}

}  // namespace

WalkLine::WalkLine(const Itinerary& itinerary, std::size_t firstLeg, std::size_t endLeg,
                   double metersPerUnit)
    : itinerary_(itinerary) {
  for (std::size_t leg = firstLeg; leg < endLeg; ++leg) {
    const Leg& walk = itinerary.legs[leg];
    // The first node of a leg is the last one of the leg before.
    std::size_t index = points_.empty() ? 0 : 1;
    const std::size_t begin = points_.empty() ? 0 : points_.size() - 1;
    for (; index < walk.nodes.size(); ++index) append(leg, index, metersPerUnit);
    if (!points_.empty()) spread(begin, walk);
  }
}

const std::shared_ptr<Node>& WalkLine::node(std::size_t index) const {
  return itinerary_.legs[places_[index].leg].nodes[places_[index].index];
}

void WalkLine::append(std::size_t leg, std::size_t index, double metersPerUnit) {
  const Node& node = *itinerary_.legs[leg].nodes[index];
  PlanePoint point{node.x * metersPerUnit, node.y * metersPerUnit};
  if (!isUsable(point)) point = points_.empty() ? PlanePoint{} : points_.back();
  along_.push_back(points_.empty() ? 0.0 : along_.back() + length(point - points_.back()));
  points_.push_back(point);
  places_.push_back({leg, index});
}

// Distributes the meters and seconds of a leg to its points by their distance in the plane.
void WalkLine::spread(std::size_t begin, const Leg& leg) {
  const double startMeters = meters_.empty() ? 0.0 : meters_.back();
  const double startSeconds = seconds_.empty() ? 0.0 : seconds_.back();
  const double start = along_[begin];
  const double whole = along_.back() - start;
  for (std::size_t i = meters_.size(); i < points_.size(); ++i) {
    const bool isLast = i + 1 == points_.size();
    const double share = isLast ? 1.0 : whole > 0.0 ? (along_[i] - start) / whole : 0.0;
    meters_.push_back(startMeters + share * leg.meters);
    seconds_.push_back(startSeconds + share * leg.seconds);
  }
}

void WalkLine::straighten(std::size_t first, std::size_t last) {
  const PlanePoint begin = points_[first];
  const PlanePoint whole = points_[last] - begin;
  const double square = dot(whole, whole);
  double share = 0.0;  // never decreases
  for (std::size_t i = first + 1; i < last; ++i) {
    const double own = square > 0.0 ? dot(points_[i] - begin, whole) / square : 0.0;
    share = std::clamp(own, share, 1.0);
    points_[i] = {begin.x + share * whole.x, begin.y + share * whole.y};
  }
}

void WalkLine::measure() {
  for (std::size_t i = 1; i < points_.size(); ++i)
    along_[i] = along_[i - 1] + length(points_[i] - points_[i - 1]);
}

PlanePoint WalkLine::at(double distance) const {
  const auto next = std::lower_bound(along_.begin(), along_.end(), distance);
  if (next == along_.begin()) return points_.front();
  if (next == along_.end()) return points_.back();
  const auto index = static_cast<std::size_t>(next - along_.begin());
  const PlanePoint begin = points_[index - 1];
  const PlanePoint end = points_[index];
  const double share = (distance - along_[index - 1]) / (along_[index] - along_[index - 1]);
  return {begin.x + share * (end.x - begin.x), begin.y + share * (end.y - begin.y)};
}

}  // namespace orivanta::guidance
