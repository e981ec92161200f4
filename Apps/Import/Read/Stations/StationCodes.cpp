#include "Apps/Import/Read/Stations/StationCodes.hpp"

#include <algorithm>
#include <array>

namespace orivanta::importer {

namespace {

struct SpaceKind {
  std::string_view code;
  AreaKind kind;
};

constexpr std::array spaceKinds = {
    SpaceKind{"B019", AreaKind::unknown},   SpaceKind{"B020", AreaKind::opening},
    SpaceKind{"B021", AreaKind::stairs},    SpaceKind{"B022", AreaKind::elevator},
    SpaceKind{"B023", AreaKind::escalator}, SpaceKind{"B024", AreaKind::movingWalkway},
    SpaceKind{"B025", AreaKind::ramp},      SpaceKind{"B027", AreaKind::walkway},
    SpaceKind{"B028", AreaKind::walkway},   SpaceKind{"B029", AreaKind::walkway},
    SpaceKind{"B030", AreaKind::walkway},   SpaceKind{"B031", AreaKind::walkway},
    SpaceKind{"B999", AreaKind::unknown},
};

// Connectors, site points, benches, signs and equipment against fire.
constexpr std::array<std::string_view, 12> noPlaces = {
    "F011", "F012", "F013", "F014", "F015", "F016", "F033", "F037", "F046", "F047", "F048", "F049"};

struct Pair {
  std::string_view facility;
  std::string_view space;
};

constexpr std::array pairs = {Pair{"F018", "B006"}, Pair{"F020", "B004"}, Pair{"F021", "B016"},
                              Pair{"F022", "B017"}, Pair{"F025", "B001"}, Pair{"F026", "B001"},
                              Pair{"F101", "B005"}, Pair{"F104", "B018"}, Pair{"F107", "B001"}};

}  // namespace

AreaKind kindOfSpace(std::string_view code) {
  const auto found = std::find_if(spaceKinds.begin(), spaceKinds.end(),
                                  [&](const SpaceKind& each) { return each.code == code; });
  return found == spaceKinds.end() ? AreaKind::room : found->kind;
}

bool mayBeHall(std::string_view code) {
  return code == "B003" || code == "B004" || code == "B019" || code == "B999" || code.empty();
}

bool isPlace(std::string_view code) {
  return std::find(noPlaces.begin(), noPlaces.end(), code) == noPlaces.end();
}

bool isSame(std::string_view facilityCode, std::string_view spaceCode) {
  if ("F001" <= facilityCode && facilityCode <= "F008")
    return "B007" <= spaceCode && spaceCode <= "B014";
  return std::any_of(pairs.begin(), pairs.end(), [&](const Pair& each) {
    return each.facility == facilityCode && each.space == spaceCode;
  });
}

LinkKind kindOfLink(std::string_view routeType) {
  if (routeType == "2") return LinkKind::movingWalkway;
  if (routeType == "4") return LinkKind::elevator;
  if (routeType == "5") return LinkKind::escalator;
  if (routeType == "6") return LinkKind::stairs;
  if (routeType == "7") return LinkKind::ramp;
  return LinkKind::walk;
}

Direction directionOfLink(std::string_view code) {
  if (code == "2") return Direction::forward;
  if (code == "3") return Direction::backward;
  return Direction::both;
}

Wheelchair wheelchairOfElevator(std::string_view code) {
  if (code == "3" || code == "5") return Wheelchair::yes;
  if (code == "2" || code == "4") return Wheelchair::no;
  return Wheelchair::unknown;
}

}  // namespace orivanta::importer
