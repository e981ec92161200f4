#include "Source/Guidance/LabelName.hpp"

#include "Source/Category.hpp"
#include "Source/Guidance/Network/ConnectorSign.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

std::string labelName(const Venue& venue, const Location& place) {
  if (const auto* connector = dynamic_cast<const Vortex*>(&place))
    return guidance::signOf(*connector, venue);
  if (!hasGeneratedName(place)) return place.name.value_or("");
  return place.categories.empty() ? "" : place.categories.front()->name.value_or("");
}

}  // namespace orivanta
