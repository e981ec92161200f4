#include "Apps/Viewer/ShownName.hpp"

#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

std::string shownName(const Venue& venue, const Location& place) {
  std::string name = labelName(venue, place);
  if (!name.empty()) return name;
  const auto floors = floorsOf(place);
  return floors.empty() ? "" : floorName(*floors.front());
}

}  // namespace orivanta::viewer
