#include "Apps/Import/Connectors/PlacesOfConnectors.hpp"

#include <algorithm>
#include <set>
#include <string>

#include "Apps/Import/Connectors/Piece.hpp"

namespace orivanta::importer {

void dropPlacesOfConnectors(Building& building) {
  std::set<std::string> areas;
  for (const Area& area : building.areas)
    if (pieceOf(area)) areas.insert(area.id);
  std::set<std::string> dropped;
  for (const Place& place : building.places)
    if (!place.areas.empty() &&
        std::all_of(place.areas.begin(), place.areas.end(),
                    [&](const std::string& area) { return areas.contains(area); }))
      dropped.insert(place.id);
  std::erase_if(building.places, [&](const Place& place) { return dropped.contains(place.id); });
  for (Area& area : building.areas)
    if (dropped.contains(area.place)) area.place.clear();
}

}  // namespace orivanta::importer
