#include "Source/Guidance/Steps/WalkPlan.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta::guidance {

namespace {

constexpr double joinsDeparture = 9.0;   // meters from the entrance to the first turn
constexpr double joinsEnd = 8.0;         // meters between a turn and a connector or the destination
constexpr double oppositeMeters = 10.0;  // opposite turns that are closer are told together
constexpr double sideDegrees = 45.0;     // from here on, something is on a side

Side sideOf(double degrees) {
  if (std::abs(degrees) < sideDegrees) return Side::ahead;
  return degrees > 0.0 ? Side::left : Side::right;
}

// Takes turns away from both ends of a list.
class WalkPlanner {
 public:
  WalkPlanner(const WalkLine& line, const WalkEnds& ends)
      : line_(line),
        turns_(turnsOf(line)),
        entrance_(ends.entrance),
        destination_(ends.destination) {
    const auto isInside = [&](const Turn& turn) {
      return turn.last < entrance_ || turn.first > destination_;
    };
    turns_.erase(std::remove_if(turns_.begin(), turns_.end(), isInside), turns_.end());
  }

  // The way out of a room through its door is no turn: only what follows outside may be wide.
  void correctAtDoor(Turn& turn) const {
    constexpr double atDoor = 3.0;  // meters
    const bool isWide = turn.sharpness == Sharpness::sharp || turn.sharpness == Sharpness::around;
    if (!isWide || entrance_ == 0 || distance(entrance_, turn.first) > atDoor) return;
    const PlanePoint wayOut = line_.at(line_.along(entrance_) + 1.0) - line_.point(entrance_);
    const PlanePoint wayOn = line_.at(line_.along(turn.last) + atDoor) - line_.point(turn.last);
    if (std::abs(degreesBetween(wayOut, wayOn)) <= 120.0) turn.sharpness = Sharpness::turn;
  }

  bool hasFirst(double reach) const {
    return !turns_.empty() && distance(entrance_, turns_.front().first) <= reach;
  }

  // The turns just before a ride become its side.
  Side takeRideSide(bool keepFirst) {
    double degrees = 0.0;
    while (hasLast(keepFirst) && toEnd(turns_.back(), line_.size() - 1) <= joinsEnd) {
      degrees += turns_.back().degrees;
      turns_.pop_back();
    }
    return std::abs(degrees) < sideDegrees ? Side::none : sideOf(degrees);
  }

  // The last turn before the destination becomes its side, or else the angle to the inside.
  Side takeArrivalSide(bool keepFirst, std::size_t& first) {
    first = destination_;
    const bool hasInside = destination_ > 0 && destination_ + 1 < line_.size();
    const double inside = hasInside ? degreesInside() : 0.0;
    const Side side = hasInside ? sideOf(inside) : Side::none;
    if (!hasLast(keepFirst) || toEnd(turns_.back(), destination_) > joinsEnd) return side;
    const Turn last = turns_.back();
    const bool contradicts = std::abs(inside) >= sideDegrees && inside * last.degrees < 0.0;
    if (contradicts && last.last < destination_) return side;  // both are told
    first = std::min(first, last.first);
    turns_.pop_back();
    return sideOf(last.degrees);
  }

  std::vector<ToldTurn> takeAll() {
    std::vector<ToldTurn> all;
    for (auto turn = turns_.begin(); turn != turns_.end(); ++turn) {
      if (!all.empty() && isToldWith(all.back(), *turn))
        all.back().second = *turn;
      else
        all.push_back({*turn, std::nullopt});
    }
    return all;
  }

 private:
  double distance(std::size_t first, std::size_t last) const {
    return line_.along(last) - line_.along(first);
  }

  // From the middle of a turn, which may be long.
  double toEnd(const Turn& turn, std::size_t end) const {
    return (distance(turn.first, end) + distance(turn.last, end)) / 2.0;
  }

  // The first turn belongs to the departure if it joins that.
  bool hasLast(bool keepFirst) const { return turns_.size() > (keepFirst ? 1U : 0U); }

  double degreesInside() const {
    const PlanePoint door = line_.point(destination_);
    const PlanePoint heading = door - line_.at(line_.along(destination_) - 3.0);
    return degreesBetween(heading, line_.point(destination_ + 1) - door);
  }

  bool isToldWith(const ToldTurn& before, const Turn& turn) const {
    return !before.second && before.turn.degrees * turn.degrees < 0.0 &&
           distance(before.turn.last, turn.first) <= oppositeMeters;
  }

  const WalkLine& line_;
  std::vector<Turn> turns_;
  const std::size_t entrance_;
  const std::size_t destination_;
};

}  // namespace

WalkPlan::WalkPlan(const WalkLine& line, const Section& section, const WalkEnds& ends) {
  WalkPlanner planner(line, ends);
  endFirst = line.size() - 1;
  const bool joinsFirst =
      planner.hasFirst(section.departure != nullptr ? joinsDeparture : joinsEnd);
  endSide = section.arrival != nullptr ? planner.takeArrivalSide(joinsFirst, endFirst)
                                       : planner.takeRideSide(joinsFirst);
  turns = planner.takeAll();
  if (!joinsFirst || turns.empty()) return;
  first = turns.front();
  planner.correctAtDoor(first->turn);
  turns.erase(turns.begin());
}

}  // namespace orivanta::guidance
