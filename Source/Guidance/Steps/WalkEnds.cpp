#include "Source/Guidance/Steps/WalkEnds.hpp"

#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

WalkEnds::WalkEnds(const WalkLine& line, const Section& section, const Surroundings& surroundings)
    : destination(line.size() - 1) {
  const auto isEntrance = [&](std::size_t index, const Visit* visit) {
    return visit != nullptr && visit->location &&
           surroundings.isEntranceOf(*line.node(index), *visit->location);
  };
  const std::size_t end = line.size();
  while (entrance < end && !isEntrance(entrance, section.departure)) ++entrance;
  hasEntrance = entrance < end;
  if (!hasEntrance) entrance = 0;
  while (destination > 0 && !isEntrance(destination, section.arrival)) --destination;
  hasDestination = isEntrance(destination, section.arrival);
  if (!hasDestination) destination = end - 1;
  if (entrance <= destination) return;
  entrance = 0;
  destination = end - 1;
  hasEntrance = hasDestination = false;
}

}  // namespace orivanta::guidance
