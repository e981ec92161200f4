#include "Source/Guidance/Steps/Landmarks.hpp"

#include <cmath>
#include <unordered_map>
#include <utility>

#include "Source/Location.hpp"

namespace orivanta::guidance {

namespace {

using ReferencePosition = Direction::Turn::ReferencePosition;

constexpr double nearTurn = 9.0;       // meters
constexpr double nearWalk = 6.0;       // meters
constexpr double onTheLine = 0.7;      // meters; an entrance there is on no side
constexpr double atTheTurn = 2.0;      // meters
constexpr double aheadDegrees = 25.0;  // an entrance within this angle is ahead
constexpr double sideDegrees = 60.0;   // one up to this angle is behind the turn, on its side
constexpr double pastDegrees = 115.0;  // one from this angle on is before the turn

// Where the turn is, seen from an entrance near it; nothing if that cannot be told clearly.
std::optional<ReferencePosition> positionOf(const NearbyPlace& place, const Turn& turn,
                                            const WalkLine& line) {
  const PlanePoint corner = line.point(turn.first);
  const PlanePoint away = place.entrance - corner;
  if (length(away) <= atTheTurn) return ReferencePosition::At;
  const PlanePoint heading = corner - line.at(line.along(turn.first) - nearTurn);
  const double side = degreesBetween(heading, away) * (turn.degrees < 0.0 ? -1.0 : 1.0);
  if (std::abs(side) <= aheadDegrees) return ReferencePosition::At;
  if (side > 0.0 && side <= sideDegrees) return ReferencePosition::Before;
  if (side >= pastDegrees && place.along < line.along(turn.first)) return ReferencePosition::Past;
  return std::nullopt;
}

// The choice of a place at a turn. Of the entrances of a place that is not clearly on one side of
// the turn, none counts.
class TurnChoice {
 public:
  TurnChoice(const Turn& turn, const WalkLine& line)
      : turn_(turn), line_(line), corner_(line.point(turn.first)) {}

  void consider(const NearbyPlace& place) {
    const double way = place.onFoot + std::abs(place.along - line_.along(turn_.first));
    if (length(place.entrance - corner_) > nearTurn || way > NearbyPlaces::farthestOnFoot) return;
    const auto position = positionOf(place, turn_, line_);
    const auto [entry, isNew] = candidates_.try_emplace(place.place.get());
    auto& candidate = entry->second;
    if (!isNew && (!candidate || candidate->position != position))
      candidate.reset();
    else if (position)
      candidate = Candidate{rank(place, *position), &place, *position};
  }

  std::optional<Landmark> best() const {
    std::optional<Candidate> best;
    for (const auto& [place, candidate] : candidates_)
      if (candidate && (!best || candidate->key() < best->key())) best = candidate;
    if (!best) return std::nullopt;
    return Landmark{best->place->place, best->place->category, best->position};
  }

 private:
  struct Candidate {
    double rank;
    const NearbyPlace* place;
    ReferencePosition position;

    // The order of the places decides ties.
    std::pair<double, const NearbyPlace*> key() const { return {rank, place}; }
  };

  // Lower is better: near, by name, and passed or reached rather than behind the turn.
  double rank(const NearbyPlace& place, ReferencePosition position) const {
    return length(place.entrance - corner_) + (place.category ? 5.0 : 0.0) +
           (position == ReferencePosition::Before ? 3.0 : 0.0);
  }

  const Turn& turn_;
  const WalkLine& line_;
  const PlanePoint corner_;
  std::unordered_map<const Location*, std::optional<Candidate>> candidates_;
};

}  // namespace

Landmarks::Landmarks(const Itinerary& itinerary) {
  for (const Visit& visit : itinerary.visits) used_.insert(visit.location.get());
}

std::optional<Landmark> Landmarks::at(const Turn& turn, const WalkLine& line,
                                      const NearbyPlaces& nearby) {
  TurnChoice choice(turn, line);
  const double along = line.along(turn.first);
  for (const NearbyPlace& place : nearby.between(along - nearTurn, along + nearTurn))
    if (!used_.contains(place.place.get())) choice.consider(place);
  auto landmark = choice.best();
  if (landmark) used_.insert(landmark->place.get());
  return landmark;
}

const NearbyPlace* Landmarks::passedNext(double target, double begin, double end,
                                         const NearbyPlaces& nearby) const {
  const auto rank = [&](const NearbyPlace& place) {
    return std::abs(place.along - target) + (place.category ? end - begin : 0.0);
  };
  const NearbyPlace* best = nullptr;
  for (const NearbyPlace& place : nearby.between(begin, end))
    if (!used_.contains(place.place.get()) && std::abs(place.beside) >= onTheLine &&
        std::abs(place.beside) <= nearWalk && (best == nullptr || rank(place) < rank(*best)))
      best = &place;
  return best;
}

std::vector<Passed> Landmarks::passed(double begin, double end, const NearbyPlaces& nearby) {
  const double whole = end - begin;
  const int count = whole > 70.0 ? 2 : whole > 12.0 ? 1 : 0;
  constexpr double margin = 2.0;  // a place at the very end would be taken for a landmark of it
  std::vector<Passed> result;
  for (int i = 1; i <= count; ++i) {
    const double part = (whole - 2.0 * margin) / count;
    const double from = begin + margin + (i - 1) * part;
    const NearbyPlace* place = passedNext(from + part / 2.0, from, from + part, nearby);
    if (place == nullptr) continue;
    used_.insert(place->place.get());
    result.push_back(
        {place->place, place->category, place->beside > 0.0 ? Side::left : Side::right});
  }
  return result;
}

std::shared_ptr<Location> Landmarks::opposite(double end, Side side, const NearbyPlaces& nearby) {
  constexpr double reach = 4.0;  // meters along the walk
  if (side != Side::left && side != Side::right) return nullptr;
  const NearbyPlace* best = nullptr;
  for (const NearbyPlace& place : nearby.between(end - reach, end + reach)) {
    const bool isOpposite = (place.beside < 0.0) == (side == Side::left);
    if (used_.contains(place.place.get()) || place.category || !isOpposite ||
        std::abs(place.beside) < onTheLine || std::abs(place.beside) > nearWalk)
      continue;
    if (best == nullptr || std::abs(place.along - end) < std::abs(best->along - end)) best = &place;
  }
  if (best == nullptr) return nullptr;
  used_.insert(best->place.get());
  return best->place;
}

}  // namespace orivanta::guidance
