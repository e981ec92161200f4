#include "Source/Guidance/Steps/WalkSteps.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Steps/Overshoots.hpp"
#include "Source/Guidance/Steps/RideEnd.hpp"
#include "Source/Guidance/Steps/RoomsOnWay.hpp"

namespace orivanta::guidance {

namespace {

constexpr double aloneMeters = 3.0;  // a shorter straight walk has no instruction of its own

}  // namespace

WalkSteps::WalkSteps(const Itinerary& itinerary, const Section& section,
                     const Surroundings& surroundings, Landmarks& landmarks,
                     const foundation::CancellationToken& token)
    : line_(itinerary, section.firstLeg, section.endLeg, surroundings.metersPerUnit()) {
  if (line_.empty()) return;
  const WalkEnds ends(line_, section, surroundings);
  removeOvershoots(line_, ends);
  const WalkPlan plan(line_, section, ends);
  addFirst(section, plan);
  if (section.departure == nullptr && section.firstLeg > 0)
    steps.front().side = sideAfterRide(itinerary.legs[section.firstLeg - 1], plan, surroundings);
  addTurns(plan.turns);
  if (section.arrival != nullptr)
    addArrival(section, plan);
  else
    rideSide = plan.endSide;
  measure();
  mention(NearbyPlaces(line_, surroundings, token), plan, ends, landmarks);
  addRooms(section, surroundings, token);
  dropEmptyLeave();
}

Side WalkSteps::sideAfterRide(const Leg& ride, const WalkPlan& plan,
                              const Surroundings& surroundings) const {
  const double reach = line_.along(plan.first ? plan.first->turn.first : line_.size() - 1);
  return sideAfter(ride, line_, std::min(reach, aloneMeters), surroundings.metersPerUnit());
}

// Adds an instruction between two points of the line. `told` may be null.
void WalkSteps::add(Step step, const ToldTurn* told, std::size_t first, std::size_t last,
                    std::size_t anchor) {
  step.leg = step.lastLeg = line_.leg(first);
  step.first = line_.indexInLeg(first);
  // An instruction that reaches into the next leg ends with its own.
  while (line_.leg(last) != step.leg) --last;
  step.last = line_.indexInLeg(last);
  if (told != nullptr) {
    step.turnDegrees = told->turn.degrees;
    step.sharpness = told->turn.sharpness;
    if (told->second) step.secondTurnDegrees = told->second->degrees;
  }
  steps.push_back(std::move(step));
  anchors_.push_back(anchor);
}

// Departing, or leaving the connector.
void WalkSteps::addFirst(const Section& section, const WalkPlan& plan) {
  Step step;
  step.kind = section.departure != nullptr ? Step::Kind::depart : Step::Kind::leave;
  if (section.departure != nullptr) step.place = section.departure->location;
  const bool departs = step.kind == Step::Kind::depart;
  add(std::move(step), plan.first ? &*plan.first : nullptr, 0, plan.first ? plan.first->last() : 0,
      0);
  // Outside a door, a traveler can only go left or right.
  Sharpness& sharpness = steps.back().sharpness;
  if (departs && (sharpness == Sharpness::sharp || sharpness == Sharpness::around))
    sharpness = Sharpness::turn;
}

void WalkSteps::addTurns(const std::vector<ToldTurn>& turns) {
  for (const ToldTurn& told : turns) {
    Step step;
    step.kind = Step::Kind::turn;
    add(std::move(step), &told, told.turn.first, told.last(), told.turn.first);
  }
}

void WalkSteps::addArrival(const Section& section, const WalkPlan& plan) {
  Step step;
  step.kind = Step::Kind::arrive;
  step.place = section.arrival->location;
  step.side = plan.endSide;
  const std::size_t end = line_.size() - 1;
  std::size_t first = plan.endFirst;
  while (line_.leg(first) != line_.leg(end)) ++first;
  add(std::move(step), nullptr, first, end, end);
}

// The point of the line where the walk after an instruction ends.
std::size_t WalkSteps::endOf(std::size_t index) const {
  return index + 1 < steps.size() ? anchors_[index + 1] : line_.size() - 1;
}

void WalkSteps::measure() {
  for (std::size_t i = 0; i < steps.size(); ++i) {
    steps[i].metersToNext = line_.meters(endOf(i)) - line_.meters(anchors_[i]);
    steps[i].secondsToNext = line_.seconds(endOf(i)) - line_.seconds(anchors_[i]);
  }
}

void WalkSteps::mention(const NearbyPlaces& nearby, const WalkPlan& plan, const WalkEnds& ends,
                        Landmarks& landmarks) {
  for (std::size_t i = 0; i < plan.turns.size(); ++i)
    steps[i + 1].landmark = landmarks.at(plan.turns[i].turn, line_, nearby);
  if (steps.back().kind == Step::Kind::arrive)
    steps.back().opposite =
        landmarks.opposite(line_.along(ends.destination), steps.back().side, nearby);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (steps[i].kind == Step::Kind::arrive) continue;
    std::size_t begin = anchors_[i];
    if (i > 0)
      begin = plan.turns[i - 1].last();
    else if (plan.first)
      begin = plan.first->last();
    steps[i].passed = landmarks.passed(line_.along(begin), line_.along(endOf(i)), nearby);
  }
}

// A room belongs to the last instruction at or before its entrance.
void WalkSteps::addRooms(const Section& section, const Surroundings& surroundings,
                         const foundation::CancellationToken& token) {
  for (const RoomOnWay& room : roomsOnWay(line_, section, surroundings, token)) {
    const auto next = std::upper_bound(anchors_.begin() + 1, anchors_.end(), room.first);
    steps[static_cast<std::size_t>(next - anchors_.begin()) - 1].through.push_back(room.place);
  }
}

// Leaving a connector for a short straight walk is told with the ride.
void WalkSteps::dropEmptyLeave() {
  const Step& first = steps.front();
  if (first.kind != Step::Kind::leave || first.turnDegrees != 0.0 || first.side != Side::none ||
      !first.through.empty() || line_.along(endOf(0)) - line_.along(0) >= aloneMeters)
    return;
  metersBefore = first.metersToNext;
  secondsBefore = first.secondsToNext;
  steps.erase(steps.begin());
  anchors_.erase(anchors_.begin());
}

}  // namespace orivanta::guidance
