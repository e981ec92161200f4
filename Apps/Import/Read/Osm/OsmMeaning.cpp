#include "Apps/Import/Read/Osm/OsmMeaning.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <initializer_list>

namespace orivanta::importer {

namespace {

using Values = std::initializer_list<std::string_view>;

bool isOneOf(std::string_view value, Values values) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

// Whether the tag is there and does not deny what its key means.
bool says(const OsmTags& tags, std::string_view key) {
  const std::string_view value = tags[key];
  return !value.empty() && value != "no" && value != "none";
}

// The value of the tags that tell the use of a room, in their order.
bool usedAs(const OsmTags& tags, Values values) {
  for (const std::string_view key :
       {"room", "indoor", "buildingpart", "buildingpart:verticalpassage"})
    if (isOneOf(tags[key], values)) return true;
  return false;
}

bool isFootway(const OsmTags& tags) {
  return isOneOf(tags["highway"], {"footway", "path", "pedestrian", "corridor"});
}

bool isPlatform(const OsmTags& tags) {
  return tags.is("railway", "platform") || tags.is("public_transport", "platform") ||
         tags.is("highway", "platform");
}

bool isConveying(const OsmTags& tags) { return says(tags, "conveying"); }

bool isStairs(const OsmTags& tags) {
  return tags.is("highway", "steps") || says(tags, "stairs") ||
         usedAs(tags, {"stairs", "stairway", "staircase", "stairwell", "steps"});
}

bool isTrifle(std::string_view amenity) {
  return isOneOf(amenity, {"bench", "waste_basket", "waste_disposal", "grit_bin", "lounger",
                           "shelter", "hunting_stand", "ashtray", "table", "vacuum_cleaner"});
}

// Whether the tags say more about being indoors than a level, which outdoor things also have.
bool isInsideBuilding(const OsmTags& tags) {
  return says(tags, "indoor") || says(tags, "room") || says(tags, "buildingpart");
}

// Whether the tags are those of a place that has a building for itself.
bool isWholeSite(const OsmTags& tags) {
  return !isInsideBuilding(tags) &&
         (tags.is("shop", "mall") || says(tags, "aeroway") || tags.is("railway", "station") ||
          tags.is("public_transport", "station") ||
          isOneOf(tags["amenity"], {"university", "college", "school", "hospital", "bus_station",
                                    "townhall", "conference_centre", "exhibition_centre"}));
}

std::optional<AreaKind> connectorKind(const OsmTags& tags) {
  if (isElevator(tags)) return AreaKind::elevator;
  if (usedAs(tags, {"escalator"}) || (isConveying(tags) && isStairs(tags)))
    return AreaKind::escalator;
  if (isConveying(tags) || usedAs(tags, {"moving_walkway", "travelator"}))
    return AreaKind::movingWalkway;
  if (isStairs(tags)) return AreaKind::stairs;
  if (usedAs(tags, {"ramp"})) return AreaKind::ramp;
  return std::nullopt;
}

}  // namespace

bool isIndoors(const OsmTags& tags) {
  return tags.has("level") || tags.has("repeat_on") || isInsideBuilding(tags);
}

bool isAreaByTags(const OsmTags& tags) {
  if (tags.is("area", "no")) return false;
  if (tags.is("area", "yes") || tags.is("type", "multipolygon")) return true;
  if (isOneOf(tags["indoor"], {"wall", "pathway"})) return false;
  if (says(tags, "indoor") && !tags.is("indoor", "yes")) return true;
  if (isElevator(tags) || isPlatform(tags) || tags.is("stairs", "yes")) return true;
  if (tags.has("highway") || tags.has("barrier")) return false;
  return says(tags, "indoor") || says(tags, "room") || says(tags, "buildingpart") ||
         says(tags, "building") || says(tags, "building:part") || isDestination(tags) ||
         isOneOf(tags["railway"], {"station"}) || tags.has("aeroway");
}

bool isBuilding(const OsmTags& tags) {
  if (isInsideBuilding(tags)) return false;
  if (tags.is("shop", "mall") || tags.is("aeroway", "terminal")) return true;
  if (!says(tags, "building")) return false;
  // A kiosk in a hall is tagged as a building on a level.
  return !isIndoors(tags) || !isDestination(tags) || isWholeSite(tags);
}

bool isLevelOutline(const OsmTags& tags) { return tags.is("indoor", "level"); }

std::optional<AreaKind> areaKind(const OsmTags& tags) {
  if (isLevelOutline(tags) || isBuilding(tags) || isWholeSite(tags)) return std::nullopt;
  if (const auto connector = connectorKind(tags)) return connector;
  if (usedAs(tags, {"void", "opening", "airspace"})) return AreaKind::opening;
  if (tags.is("indoor", "wall") || tags.is("barrier", "wall")) return AreaKind::wall;
  if (usedAs(tags, {"column", "pillar", "furniture", "planter"}) || isTrifle(tags["amenity"]))
    return AreaKind::obstacle;
  const bool isUsed = isDestination(tags);
  if (usedAs(tags, {"corridor", "hall", "hallway", "lobby", "foyer", "entrance", "entrance_hall",
                    "vestibule", "concourse", "passage"}) &&
      !tags.has("shop"))
    return AreaKind::walkway;
  if (isPlatform(tags) || isFootway(tags)) return AreaKind::walkway;
  if (tags.is("amenity", "parking")) return AreaKind::unknown;
  if (tags.is("tourism", "artwork")) return AreaKind::obstacle;
  if (says(tags, "room") || says(tags, "buildingpart") || tags.is("indoor", "room"))
    return AreaKind::room;
  if (isUsed) return AreaKind::room;
  if (tags.is("indoor", "area")) return AreaKind::walkway;
  if (tags.is("indoor", "yes") && !tags.has("highway")) return AreaKind::unknown;
  return std::nullopt;
}

std::optional<LineKind> lineKind(const OsmTags& tags) {
  if (tags.is("indoor", "wall") || isOneOf(tags["barrier"], {"wall", "retaining_wall"}))
    return LineKind::wall;
  if (isOneOf(tags["barrier"], {"fence", "handrail", "guard_rail", "hedge", "chain", "rope",
                                "jersey_barrier", "cable_barrier"}))
    return LineKind::barrier;
  const auto connector = connectorKind(tags);
  if (connector == AreaKind::escalator) return LineKind::escalator;
  if (connector == AreaKind::movingWalkway) return LineKind::movingWalkway;
  if (connector == AreaKind::stairs) return LineKind::steps;
  if (connector == AreaKind::ramp) return LineKind::ramp;
  if (isFootway(tags) || isPlatform(tags) || isOneOf(tags["indoor"], {"pathway", "corridor"}))
    return LineKind::path;
  return std::nullopt;
}

bool isDoor(const OsmTags& tags) {
  return tags.has("door") || says(tags, "entrance") || tags.is("indoor", "door") ||
         tags.is("exit", "emergency") || tags.is("emergency", "exit") ||
         tags.is("railway", "ticket_gate") ||
         isOneOf(tags["barrier"], {"gate", "turnstile", "full-height_turnstile", "swing_gate",
                                   "sliding_gate", "wicket_gate", "kissing_gate", "entrance"});
}

bool isElevator(const OsmTags& tags) {
  if (tags.is("highway", "elevator") || usedAs(tags, {"elevator", "lift"})) return true;
  // On buildings and businesses, the tag says that there is one.
  return tags.is("elevator", "yes") && !isDestination(tags) && !tags.has("building");
}

bool isDestination(const OsmTags& tags) {
  if (says(tags, "amenity") && !isTrifle(tags["amenity"])) return true;
  for (const std::string_view key : {"shop", "office", "healthcare", "tourism", "leisure", "craft",
                                     "historic", "information", "vending"})
    if (says(tags, key)) return true;
  return isOneOf(tags["emergency"], {"defibrillator", "first_aid_kit", "first_aid", "phone"}) ||
         isOneOf(tags["railway"], {"stop", "tram_stop", "halt"}) ||
         isOneOf(tags["public_transport"], {"stop_position", "platform"}) ||
         isOneOf(tags["highway"], {"bus_stop"});
}

std::string categoryOf(const OsmTags& tags) {
  const bool areToilets = tags.is("amenity", "toilets") || usedAs(tags, {"toilet", "toilets"});
  if (areToilets) {
    const bool forMen = tags.is("male", "yes") || tags.is("toilets", "men");
    const bool forWomen = tags.is("female", "yes") || tags.is("toilets", "women");
    if (forMen != forWomen) return forMen ? "toilets=men" : "toilets=women";
    if (!forMen && !tags.is("unisex", "yes") && isOneOf(tags["wheelchair"], {"yes", "designated"}))
      return "toilets=wheelchair";
    return "amenity=toilets";
  }
  if (tags.is("vending", "public_transport_tickets")) return "vending=public_transport_tickets";
  // Tags of public transport follow those that tell more.
  for (const std::string_view key :
       {"shop", "amenity", "healthcare", "office", "tourism", "leisure", "craft", "historic",
        "emergency", "information", "vending", "railway", "public_transport", "room", "highway",
        "buildingpart", "entrance", "indoor"})
    if (says(tags, key)) return fmt::format("{}={}", key, tags[key]);
  return {};
}

}  // namespace orivanta::importer
