#include "Apps/Import/Read/Osm/OsmPlaces.hpp"

#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

void describePlace(const OsmThing& thing, const std::string& id, Place& place) {
  const OsmTags& tags = *thing.tags;
  place.id = id;
  place.source = thing.id;
  place.names = namesOf(tags);
  place.category = categoryOf(tags);
  place.hours = std::string(tags["opening_hours"]);
  place.description = translations(tags, "description");
  // Further names, and the number of a room that also has a name, would not be found otherwise.
  std::string others;
  if (!isNamed(tags) || tags.has("description"))
    others = place.description[""];
  else
    others = std::string(tags["ref"]);
  for (const std::string_view key :
       {"alt_name", "short_name", "official_name", "loc_name", "old_name"})
    if (tags.has(key)) others.append(others.empty() ? "" : "; ").append(tags[key]);
  if (others.empty())
    place.description.erase("");
  else
    place.description[""] = std::move(others);
  place.phone = firstOf(tags, {"phone", "contact:phone", "contact:mobile"});
  place.website = firstOf(tags, {"website", "contact:website", "url"});
  place.access = accessOf(tags);
  place.wheelchair = wheelchairOf(tags);
}

void addSpots(OsmConversion& conversion) {
  for (const OsmThing& thing : conversion.things) {
    if (!thing.isNode() || isDoor(*thing.tags) || isElevator(*thing.tags)) continue;
    if (!isDestination(*thing.tags)) continue;
    for (const std::vector<double>& levels : thing.levels) {
      const bool isFirst = &levels == &thing.levels.front();
      Place place;
      describePlace(thing, isFirst ? thing.id : thing.id + "@" + levelText(levels.front()), place);
      conversion.count(levels.size(), *thing.tags);
      for (const double level : levels)
        place.spots.push_back({level, conversion.plane(thing.points[0])});
      conversion.building.places.push_back(std::move(place));
    }
  }
}

}  // namespace orivanta::importer
