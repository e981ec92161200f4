#include "Source/Guidance/Steps/StepBuilder.hpp"

namespace orivanta::guidance {

std::vector<Step> stepsOf(const Itinerary& itinerary, const Surroundings&) {
  if (itinerary.legs.empty()) return {};
  Step depart;
  depart.kind = Step::Kind::depart;
  depart.metersToNext = itinerary.meters();
  depart.secondsToNext = itinerary.seconds();
  Step arrive;
  arrive.kind = Step::Kind::arrive;
  arrive.leg = itinerary.legs.size() - 1;
  arrive.first = arrive.last = itinerary.legs.back().nodes.size() - 1;
  return {depart, arrive};
}

}  // namespace orivanta::guidance
