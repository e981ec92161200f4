#include "Apps/Import/Read/Stations/StationFloors.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Import/Read/Stations/StationCodes.hpp"
#include "Apps/Import/Read/Stations/StationFindings.hpp"
#include "Apps/Import/Read/Stations/StationPlaces.hpp"

namespace orivanta::importer {

void StationFloors::add(const StationLayer& layer, StationFeature& feature) {
  const std::optional<double> ordinal = stationOrdinal(feature["ordinal"]);
  if (!ordinal)
    return leaveOutFeature(findings_, layer, feature, "level-unreadable",
                           "The floor has no ordinal.",
                           "Add its ordinal: 1 for the ground floor, -1 for the first basement.");
  Storey storey;
  storey.id = feature["id"];
  storey.ordinal = *ordinal;
  storey.names = namesOf(feature);
  storey.shortName = feature["short_name"];
  storey.outdoor = feature["category"] == "2";
  // The ordinals 0 (outdoors) and 1 (the ground floor) are at the same height.
  storey.elevation =
      (*ordinal >= 1.0 ? *ordinal - 1.0 : std::min(*ordinal, 0.0)) * options_.storeyHeight;
  storey.footprint = std::move(feature.geometry.polygons);
  floors_.emplace(storey.id, storey.ordinal);
  building_.storeys.push_back(std::move(storey));
}

std::optional<double> StationFloors::levelOf(const StationLayer& layer,
                                             const StationFeature& feature) {
  const auto floor = floors_.find(std::string(feature["floor_id"]));
  if (floor != floors_.end()) return floor->second;
  if (const auto own = stationOrdinal(feature["ordinal"])) return own;
  if (!layer.ordinal)
    leaveOutFeature(findings_, layer, feature, "level-unreadable",
                    fmt::format("The floor \"{}\" does not exist.", feature["floor_id"]),
                    "Add the floor, or correct floor_id.");
  return layer.ordinal;
}

}  // namespace orivanta::importer
