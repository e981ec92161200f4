#include "Source/Guidance/Step.hpp"

#include <algorithm>

#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

using DirectionTurn = Direction::Turn;

DirectionTurn::Bearing bearingOf(const Step& step) {
  if (step.kind == Step::Kind::leave && step.side == Side::right)
    return DirectionTurn::Bearing::Right;
  if (step.kind == Step::Kind::leave && (step.side == Side::left || step.side == Side::behind))
    return DirectionTurn::Bearing::Left;
  if (step.turnDegrees == 0.0) return DirectionTurn::Bearing::Straight;
  const bool left = step.turnDegrees > 0.0;
  if (step.sharpness == Sharpness::bear)
    return left ? DirectionTurn::Bearing::SlightLeft : DirectionTurn::Bearing::SlightRight;
  return left ? DirectionTurn::Bearing::Left : DirectionTurn::Bearing::Right;
}

std::shared_ptr<const Direction::Action> turnOf(const Step& step) {
  const auto position =
      step.landmark ? step.landmark->position : DirectionTurn::ReferencePosition::At;
  return std::make_shared<DirectionTurn>(bearingOf(step), position);
}

std::shared_ptr<const Direction::Action> actionOf(const Itinerary& itinerary, const Step& step) {
  switch (step.kind) {
    case Step::Kind::depart:
      return std::make_shared<Direction::Departure>();
    case Step::Kind::arrive:
      return std::make_shared<Direction::Arrival>();
    case Step::Kind::ride: {
      const Leg& last = itinerary.legs[std::max(step.leg, step.lastLeg)];
      return std::make_shared<Direction::TakeVortex>(itinerary.legs[step.leg].map,
                                                     last.nodes.back()->map);
    }
    default:
      return turnOf(step);
  }
}

std::shared_ptr<Location> placeOf(const Step& step) {
  if (step.place) return step.place;
  return step.landmark ? step.landmark->place : nullptr;
}

}  // namespace

std::shared_ptr<Directions> asDirections(const Itinerary& itinerary, const std::vector<Step>& steps,
                                         const std::vector<std::string>& texts) {
  if (!itinerary.isUsable()) return nullptr;
  auto directions = std::make_shared<Directions>();
  directions->path = itinerary.path();
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Step& step = steps[i];
    if (std::max(step.leg, step.lastLeg) >= itinerary.legs.size() ||
        step.first >= itinerary.legs[step.leg].nodes.size())
      continue;
    directions->directions.emplace_back(itinerary.legs[step.leg].nodes[step.first],
                                        actionOf(itinerary, step), placeOf(step),
                                        i < texts.size() ? texts[i] : std::string());
  }
  return directions;
}

}  // namespace orivanta::guidance
