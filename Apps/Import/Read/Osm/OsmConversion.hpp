// The conversion of things on the map to a building, split by what they become.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Projection.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"
#include "Apps/Import/Read/Osm/OsmTouching.hpp"

namespace orivanta::importer {

/// What the parts of the conversion share.
struct OsmConversion {
  const OsmData& data;
  const std::vector<OsmThing>& things;        ///< those with levels, and the buildings
  const std::vector<std::size_t>& buildings;  ///< see `assignBuildings`
  const Options& options;
  Findings& findings;
  OsmTouching touching;
  Projection projection;
  Building building;
  std::size_t vertices = 0;

  Point plane(OsmPosition position) const;
  std::vector<Point> plane(const std::vector<OsmPosition>& positions) const;
  std::vector<Polygon> plane(const std::vector<OsmPolygon>& polygons) const;

  /// Counts points of the building, and the tags that are copied to it. Throws `SourceError` beyond
  /// the limit.
  void count(std::size_t number, const OsmTags& tags = {});
};

/// "way/7" if the thing is on one level only, and "way/7@1" otherwise.
std::string idOn(const OsmThing& thing, double level);

/// Rooms, walkways, connectors and the like, with the places that they are.
void addAreas(OsmConversion& conversion);
void addDoors(OsmConversion& conversion);
void addLines(OsmConversion& conversion);
void addElevators(OsmConversion& conversion);

/// Nodes that are destinations.
void addSpots(OsmConversion& conversion);

/// Storeys with the sign texts (level:ref=*) and names that the things on them have, for each
/// building.
void addStoreys(OsmConversion& conversion);

/// The names, the language and the identifier of the building.
void nameBuilding(OsmConversion& conversion);

/// The walking network of the source: footways, flights and elevators that meet. Without
/// `NetworkChoice::source`, only if it leads to at least half of the rooms, as networks that
/// somebody has drawn for other purposes do not.
void addSourceNetwork(OsmConversion& conversion);

}  // namespace orivanta::importer
