#include "Apps/Import/Connectors/JoinFlights.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace orivanta::importer {

namespace {

constexpr double sameLanding = 0.5;  // meters

bool isTwoWay(const Connector& connector) {
  return connector.kind == ConnectorKind::stairs && connector.stops.size() >= 2 &&
         std::all_of(connector.stops.begin(), connector.stops.end(),
                     [](const Stop& stop) { return stop.enter && stop.leave; });
}

// Stairs that are drawn as areas of their own are seen, and may have names of their own.
bool isArea(const Connector& connector) {
  return std::any_of(connector.stops.begin(), connector.stops.end(),
                     [](const Stop& stop) { return !stop.area.empty(); });
}

bool isAt(const Stop& stop, const Stop& other) {
  return stop.spot.level == other.spot.level &&
         package::distance(stop.spot.position, other.spot.position) < sameLanding;
}

// Where a flight goes on.
struct End {
  std::size_t connector;
  bool isTop;
  std::size_t flight;  // the stop of the flight that is there
};

}  // namespace

void joinFlights(std::vector<Connector>& connectors) {
  std::map<double, std::vector<std::pair<std::size_t, bool>>> ends;  // by level
  for (std::size_t i = 0; i < connectors.size(); ++i) {
    if (!isTwoWay(connectors[i])) continue;
    const std::vector<Stop>& stops = connectors[i].stops;
    if (stops.front().spot.level == stops.back().spot.level) continue;
    ends[stops.front().spot.level].emplace_back(i, false);
    ends[stops.back().spot.level].emplace_back(i, true);
  }
  std::vector<bool> isJoined(connectors.size());
  for (std::size_t i = 0; i < connectors.size(); ++i) {
    const Connector& flight = connectors[i];
    if (!isTwoWay(flight) || flight.stops.size() != 2 || isArea(flight) ||
        flight.stops[0].spot.level != flight.stops[1].spot.level)
      continue;
    std::vector<End> found;
    for (const auto& [other, isTop] : ends[flight.stops[0].spot.level]) {
      const std::vector<Stop>& stops = connectors[other].stops;
      for (const std::size_t k : {0U, 1U})
        if (isAt(isTop ? stops.back() : stops.front(), flight.stops[k]))
          found.push_back({other, isTop, k});
    }
    if (found.size() != 1 || connectors[found[0].connector].access != flight.access) continue;
    std::vector<Stop>& stops = connectors[found[0].connector].stops;
    stops.insert(found[0].isTop ? stops.end() : stops.begin(), flight.stops[1 - found[0].flight]);
    isJoined[i] = true;
  }
  std::size_t index = 0;
  std::erase_if(connectors, [&](const Connector&) { return isJoined[index++]; });
}

}  // namespace orivanta::importer
