#include "Apps/Import/Read/Imdf/ImdfTypes.hpp"

#include <algorithm>
#include <array>

namespace orivanta::importer {

namespace {

constexpr std::array<std::string_view, 16> types = {
    "address",      "amenity",  "anchor", "building", "detail",   "fixture",
    "footprint",    "geofence", "kiosk",  "level",    "occupant", "opening",
    "relationship", "section",  "unit",   "venue"};

// Sorted.
constexpr std::array<std::string_view, 36> properties = {
    "access_control", "accessibility", "address",         "address_id",
    "alt_name",       "anchor_id",     "building_ids",    "category",
    "correlation_id", "country",       "destination",     "direction",
    "display_point",  "door",          "hours",           "intermediary",
    "level_id",       "level_ids",     "locality",        "name",
    "ordinal",        "origin",        "outdoor",         "parents",
    "phone",          "postal_code",   "postal_code_ext", "postal_code_vanity",
    "province",       "restriction",   "short_name",      "unit",
    "unit_id",        "unit_ids",      "validity",        "website"};

// The categories of a type, separated and surrounded by spaces.
struct Categories {
  std::string_view type;
  std::string_view names;
};

constexpr std::array categories = {
    Categories{"venue",
               " airport airport.intl aquarium businesscampus casino communitycenter "
               "conventioncenter governmentfacility healthcarefacility hotel museum "
               "parkingfacility resort retailstore shoppingcenter stadium stripmall theater "
               "themepark trainstation transitstation university "},
    Categories{"building", " parking transit transit.bus transit.train unspecified "},
    Categories{"footprint", " aerial ground subterranean "},
    Categories{"level",
               " arrivals arrivals.domestic arrivals.intl departures departures.domestic "
               "departures.intl parking transit unspecified "},
    Categories{"opening",
               " automobile bicycle emergencyexit pedestrian pedestrian.principal "
               "pedestrian.transit service "},
    Categories{"relationship",
               " elevator escalator movingwalkway ramp stairs traversal traversal.path "},
    Categories{"geofence",
               " concourse geofence paidarea platform postsecurity presecurity terminal "
               "underconstruction "},
    Categories{"fixture",
               " baggagecarousel boardinggate.desk checkin.desk checkin.kiosk desk equipment "
               "furniture immigration.desk inspection.desk obstruction securityequipment stage "
               "vegetation wall water "},
};

struct UnitKind {
  std::string_view category;
  AreaKind kind;
};

// Those of the standard, and what programs write that do not know it.
constexpr std::array unitKinds = {
    UnitKind{"brick", AreaKind::wall},
    UnitKind{"column", AreaKind::obstacle},
    UnitKind{"concrete", AreaKind::wall},
    UnitKind{"corridor", AreaKind::walkway},
    UnitKind{"drywall", AreaKind::wall},
    UnitKind{"elevator", AreaKind::elevator},
    UnitKind{"escalator", AreaKind::escalator},
    UnitKind{"footbridge", AreaKind::walkway},
    UnitKind{"glass", AreaKind::wall},
    UnitKind{"hallway", AreaKind::walkway},
    UnitKind{"lift", AreaKind::elevator},
    UnitKind{"lobby", AreaKind::walkway},
    UnitKind{"movingwalkway", AreaKind::movingWalkway},
    UnitKind{"opentobelow", AreaKind::opening},
    UnitKind{"parking", AreaKind::walkway},
    UnitKind{"passage", AreaKind::walkway},
    UnitKind{"platform", AreaKind::walkway},
    UnitKind{"ramp", AreaKind::ramp},
    UnitKind{"road", AreaKind::unknown},
    UnitKind{"staircase", AreaKind::stairs},
    UnitKind{"stairs", AreaKind::stairs},
    UnitKind{"stairway", AreaKind::stairs},
    UnitKind{"stairwell", AreaKind::stairs},
    UnitKind{"steps", AreaKind::stairs},
    UnitKind{"structure", AreaKind::wall},
    UnitKind{"terrace", AreaKind::walkway},
    UnitKind{"unenclosedarea", AreaKind::walkway},
    UnitKind{"vegetation", AreaKind::obstacle},
    UnitKind{"walkway", AreaKind::walkway},
    UnitKind{"walkway.island", AreaKind::walkway},
    UnitKind{"wood", AreaKind::wall},
};

const Categories* categoriesOf(std::string_view type) {
  const auto* found = std::find_if(categories.begin(), categories.end(),
                                   [&](const Categories& each) { return each.type == type; });
  return found == categories.end() ? nullptr : found;
}

}  // namespace

bool isImdfType(std::string_view type) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

bool isImdfProperty(std::string_view key) {
  return std::binary_search(properties.begin(), properties.end(), key);
}

bool hasKnownCategories(std::string_view type) { return categoriesOf(type) != nullptr; }

bool isImdfCategory(std::string_view type, std::string_view category) {
  const Categories* known = categoriesOf(type);
  if (known == nullptr || category.empty() || category.find(' ') != category.npos) return false;
  for (std::size_t at = known->names.find(category); at != category.npos;
       at = known->names.find(category, at + 1))
    if (known->names[at - 1] == ' ' && known->names[at + category.size()] == ' ') return true;
  return false;
}

AreaKind kindOfUnit(std::string_view category) {
  const auto* found = std::find_if(unitKinds.begin(), unitKinds.end(),
                                   [&](const UnitKind& each) { return each.category == category; });
  return found == unitKinds.end() ? AreaKind::room : found->kind;
}

std::string_view baseOf(std::string_view category) {
  return category.substr(0, category.find('.'));
}

}  // namespace orivanta::importer
