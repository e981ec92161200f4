#include "Source/Guidance/Follower.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// The length of a ride along the track. It only has to be greater than 0, so that the two ends of
// the ride differ.
constexpr double rideLength = 1.0;

// A later or earlier part of the route must be this much nearer, per meter of difference along the
// route, to count as the traveler's place. It decides where a route comes close to itself.
constexpr double jumpCost = 0.2;

struct Point {
  double x, y;
};

// Returns the part of the segment, from 0 to 1, at which it is nearest to the point.
double nearestShare(Point from, Point to, Point point) {
  const double x = to.x - from.x;
  const double y = to.y - from.y;
  const double square = x * x + y * y;
  if (!(square > 0.0)) return 0.0;
  return std::clamp(((point.x - from.x) * x + (point.y - from.y) * y) / square, 0.0, 1.0);
}

}  // namespace

// The route as one line: walks with their length in meters, rides with a nominal length.
class Follower::Track {
 public:
  struct Projection {
    double along = 0.0;
    double distance = infinity;  // in meters
  };

  Track(const Itinerary& itinerary, double unitsPerMeter) : unitsPerMeter_(unitsPerMeter) {
    double along = 0.0;
    for (const Leg& leg : itinerary.legs) {
      starts_.push_back(nodes_.size());
      const bool walk = leg.kind == Leg::Kind::walk;
      const double step = leg.nodes.size() > 1 ? rideLength / double(leg.nodes.size() - 1) : 0.0;
      for (std::size_t i = 0; i < leg.nodes.size(); ++i) {
        if (i > 0) along += walk ? length(*leg.nodes[i - 1], *leg.nodes[i]) : step;
        const auto& node = *leg.nodes[i];
        nodes_.push_back({node.map.get(), {node.x, node.y}, along, i > 0, walk});
      }
    }
    length_ = along;
  }

  double length() const { return length_; }

  // Returns the position of a node of a leg along the track.
  double at(std::size_t leg, std::size_t node) const {
    if (leg >= starts_.size() || nodes_.empty()) return length_;
    const std::size_t end = leg + 1 < starts_.size() ? starts_[leg + 1] : nodes_.size();
    return nodes_[std::min(starts_[leg] + node, end - 1)].along;
  }

  std::size_t legs() const { return starts_.size(); }

  // Finds the place on the track for a position. Among the places within `reach` meters of the
  // position, prefers those near the last place.
  Projection nearest(const Map* map, Point point, double last, double reach) const {
    Projection best;
    double bestCost = infinity;
    const auto offer = [&](double along, double distance) {
      if (!(distance <= reach)) return;
      const double cost = distance + jumpCost * std::min(std::abs(along - last), 50.0);
      if (cost < bestCost) {
        bestCost = cost;
        best = {along, distance};
      }
    };
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
      const Entry& node = nodes_[i];
      if (node.map == map) offer(node.along, distance(node.point, point));
      if (!node.continues) continue;
      const Entry& before = nodes_[i - 1];
      const bool near =
          node.walk ? node.map == map || before.map == map : isBeside(before, node, *map);
      if (!near) continue;
      const double share = nearestShare(before.point, node.point, point);
      offer(before.along + share * (node.along - before.along),
            distance({before.point.x + share * (node.point.x - before.point.x),
                      before.point.y + share * (node.point.y - before.point.y)},
                     point));
    }
    return best;
  }

 private:
  struct Entry {
    const Map* map;  // null if the node has none
    Point point;
    double along;
    bool continues;  // whether the entry before belongs to the same leg
    bool walk;
  };

  // Returns whether a traveler on a ride between two nodes may be reported on a floor: on both ends
  // of an escalator, and while a lift passes the floor.
  static bool isBeside(const Entry& from, const Entry& to, const Map& map) {
    if (from.map == nullptr || to.map == nullptr) return false;
    if (from.map == &map || to.map == &map)
      return from.point.x != to.point.x || from.point.y != to.point.y;
    const auto [low, high] = std::minmax(from.map->elevation, to.map->elevation);
    return low < map.elevation && map.elevation < high;
  }

  double distance(Point one, Point other) const {
    return std::hypot(other.x - one.x, other.y - one.y) / unitsPerMeter_;
  }
  double length(const Node& from, const Node& to) const {
    const double units = std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
    return std::isfinite(units) ? units / unitsPerMeter_ : 0.0;
  }

  double unitsPerMeter_;
  double length_ = 0.0;
  std::vector<Entry> nodes_;
  std::vector<std::size_t> starts_;  // of each leg, in `nodes_`
};

Follower::Follower(const Guide& guide, Itinerary itinerary)
    : Follower(guide, std::move(itinerary), Limits()) {}

Follower::Follower(const Guide& guide, Itinerary itinerary, Limits limits)
    : itinerary_(std::move(itinerary)),
      limits_(limits),
      steps_(guide.steps(itinerary_)),
      track_(std::make_unique<Track>(itinerary_, guide.unitsPerMeter())) {
  show(0.0);
}

Follower::~Follower() = default;
Follower::Follower(Follower&&) noexcept = default;
Follower& Follower::operator=(Follower&&) noexcept = default;

const Progress& Follower::update(const Position& position, double seconds) {
  if (!position.map || !std::isfinite(position.x) || !std::isfinite(position.y)) return progress_;
  if (std::isfinite(seconds) && (!started_ || seconds > seconds_)) {
    seconds_ = seconds;
    if (!std::exchange(started_, true)) lastOnRoute_ = seconds_;
  }
  const auto found =
      track_->nearest(position.map.get(), {position.x, position.y}, along_, limits_.meters);
  if (found.distance <= limits_.meters) {
    lastOnRoute_ = seconds_;
    progress_.offRoute = false;
    show(found.along);
  } else if (seconds_ - lastOnRoute_ >= limits_.seconds) {
    progress_.offRoute = true;
  }
  return progress_;
}

// Sets the progress to a position along the track.
void Follower::show(double along) {
  along_ = along;
  progress_.leg = 0;
  while (progress_.leg + 1 < track_->legs() && along >= track_->at(progress_.leg + 1, 0))
    ++progress_.leg;
  progress_.metersLeft = progress_.secondsLeft = progress_.legMeters = 0.0;
  for (std::size_t i = progress_.leg; i < itinerary_.legs.size(); ++i) {
    const Leg& leg = itinerary_.legs[i];
    double left = 1.0;
    if (i == progress_.leg) {
      const double start = track_->at(i, 0);
      const double length = track_->at(i, leg.nodes.size() - 1) - start;
      left = length > 0.0 ? 1.0 - (along - start) / length : 0.0;
      progress_.legMeters = (1.0 - left) * leg.meters;
    }
    progress_.metersLeft += left * leg.meters;
    progress_.secondsLeft += left * leg.seconds;
  }
  const auto isWalk = [&](std::size_t leg) {
    return leg >= itinerary_.legs.size() || itinerary_.legs[leg].kind == Leg::Kind::walk;
  };
  const bool lastLeg = progress_.leg + 1 >= itinerary_.legs.size();
  progress_.arrived =
      lastLeg && (isWalk(progress_.leg) ? progress_.metersLeft <= limits_.arrivalMeters
                                        : along >= track_->length());
  progress_.step = 0;
  while (progress_.step + 1 < steps_.size() && isCarriedOut(steps_[progress_.step], along))
    ++progress_.step;
  progress_.metersToStep = 0.0;
  if (progress_.step < steps_.size() && steps_[progress_.step].leg >= progress_.leg) {
    const Step& step = steps_[progress_.step];
    double meters = 0.0;
    for (std::size_t i = progress_.leg; i < step.leg && i < itinerary_.legs.size(); ++i)
      meters += itinerary_.legs[i].meters;
    if (isWalk(step.leg)) meters += track_->at(step.leg, step.first) - track_->at(step.leg, 0);
    progress_.metersToStep = std::max(0.0, meters - progress_.legMeters);
  }
}

// A ride has been carried out at its end, any other instruction one meter after its end.
bool Follower::isCarriedOut(const Step& step, double along) const {
  if (step.kind == Step::Kind::ride) return track_->at(step.lastLeg + 1, 0) <= along;
  return track_->at(step.leg, step.last) + 1.0 <= along;
}

}  // namespace orivanta::guidance
