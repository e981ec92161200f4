#include "Source/UI/Display/Styled/PlaceShapes.hpp"

#include "Source/Location.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

// The joined record of a connector has no polygons.
std::set<std::string> shapeNamesOf(const Location& place) {
  std::set<std::string> names;
  for (const auto& polygon : place.polygons) names.insert(polygon->id.value_or(""));
  if (dynamic_cast<const Vortex*>(&place) != nullptr)
    for (const RawData& polygon : place._data["polygons"].arrayValue())
      names.insert(polygon["id"].stringValue());
  return names;
}

std::set<std::string> closedShapes(const Venue& venue, const guidance::Closures& closures) {
  std::set<std::string> names;
  const auto add = [&](const auto& places) {
    if (!places) return;
    for (const auto& place : *places)
      if (closures.contains(place->id.value_or(""))) names.merge(shapeNamesOf(*place));
  };
  add(venue.locations);
  add(venue.vortices);
  return names;
}

}  // namespace orivanta
