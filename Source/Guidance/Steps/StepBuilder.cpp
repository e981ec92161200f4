#include "Source/Guidance/Steps/StepBuilder.hpp"

#include <utility>

#include "Source/Guidance/Steps/Landmarks.hpp"
#include "Source/Guidance/Steps/Sections.hpp"
#include "Source/Guidance/Steps/WalkSteps.hpp"

namespace orivanta::guidance {

namespace {

class StepBuilder {
 public:
  StepBuilder(const Itinerary& itinerary, const Surroundings& surroundings,
              const foundation::CancellationToken& token)
      : itinerary_(itinerary), surroundings_(surroundings), token_(token), landmarks_(itinerary) {
    for (const Section& section : sectionsOf(itinerary)) {
      if (token.isCanceled()) break;
      if (section.kind == Leg::Kind::walk)
        addWalk(section);
      else
        addRide(section);
    }
    for (Step& step : steps)
      if (step.place) step.name = surroundings.spokenName(*step.place);
  }

  std::vector<Step> steps;

 private:
  void addWalk(const Section& section) {
    WalkSteps walk(itinerary_, section, surroundings_, landmarks_, token_);
    if (!steps.empty()) {
      steps.back().metersToNext += walk.metersBefore;
      steps.back().secondsToNext += walk.secondsBefore;
    }
    for (Step& step : walk.steps) steps.push_back(std::move(step));
    rideSide_ = walk.rideSide;
  }

  void addRide(const Section& section) {
    if (section.departure != nullptr)
      steps.push_back(stopStep(Step::Kind::depart, *section.departure, section.firstLeg, 0));
    Step step;
    step.kind = Step::Kind::ride;
    step.leg = section.firstLeg;
    step.lastLeg = section.endLeg - 1;
    step.last = lastNode(step.leg);
    step.side = std::exchange(rideSide_, Side::none);
    for (std::size_t leg = section.firstLeg; leg < section.endLeg; ++leg) {
      step.metersToNext += itinerary_.legs[leg].meters;
      step.secondsToNext += itinerary_.legs[leg].seconds;
    }
    const std::size_t last = step.lastLeg;
    steps.push_back(std::move(step));
    if (section.arrival != nullptr)
      steps.push_back(stopStep(Step::Kind::arrive, *section.arrival, last, lastNode(last)));
  }

  // Departing or arriving where no walk begins or ends.
  static Step stopStep(Step::Kind kind, const Visit& visit, std::size_t leg, std::size_t node) {
    Step step;
    step.kind = kind;
    step.leg = step.lastLeg = leg;
    step.first = step.last = node;
    step.place = visit.location;
    return step;
  }

  std::size_t lastNode(std::size_t leg) const {
    const auto& nodes = itinerary_.legs[leg].nodes;
    return nodes.empty() ? 0 : nodes.size() - 1;
  }

  const Itinerary& itinerary_;
  const Surroundings& surroundings_;
  const foundation::CancellationToken& token_;
  Landmarks landmarks_;
  Side rideSide_ = Side::none;
};

}  // namespace

std::vector<Step> stepsOf(const Itinerary& itinerary, const Surroundings& surroundings,
                          const foundation::CancellationToken& token) {
  if (!itinerary.isUsable()) return {};
  if (itinerary.visits.size() < 2) {
    Itinerary complete = itinerary;
    complete.visits = {{0, 0, nullptr}, {1, itinerary.legs.size(), nullptr}};
    return stepsOf(complete, surroundings, token);
  }
  auto steps = std::move(StepBuilder(itinerary, surroundings, token).steps);
  return token.isCanceled() ? std::vector<Step>() : steps;
}

}  // namespace orivanta::guidance
