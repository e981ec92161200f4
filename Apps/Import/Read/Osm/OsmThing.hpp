// A thing on the map of a building: a node, a way or a multipolygon with what its tags mean.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Osm/OsmData.hpp"

namespace orivanta::importer {

using OsmRing = std::vector<OsmPosition>;

/// Rings repeat their first position at the end. Outer ones are counterclockwise, holes clockwise,
/// and all begin at their smallest position, however the source has drawn them.
struct OsmPolygon {
  OsmRing outer;
  std::vector<OsmRing> holes;
};

/// A box around positions.
struct OsmBox {
  OsmPosition low{2'000'000'000, 2'000'000'000};
  OsmPosition high{-2'000'000'000, -2'000'000'000};

  void add(OsmPosition position);
  bool contains(OsmPosition position) const;
  bool meets(const OsmBox& other) const;
  OsmPosition middle() const;
};

struct OsmThing {
  std::string id;  ///< such as "way/7"
  const OsmTags* tags = nullptr;
  OsmType type = OsmType::node;
  bool isOutdoors = false;           ///< a footway between buildings; see `takeFootways`
  std::vector<OsmPosition> points;   ///< of a node or a line
  std::vector<std::int64_t> nodes;   ///< of a line, one per point
  std::vector<OsmPolygon> polygons;  ///< of an area
  OsmBox box;
  /// Its own levels, then those of each repetition (`repeat_on`). Each list is ascending.
  std::vector<std::vector<double>> levels;
  std::size_t building = 0;  ///< index of the building that it lies in, from 1; 0 for none

  bool isArea() const { return !polygons.empty(); }
  bool isNode() const { return type == OsmType::node; }
  bool isLine() const { return !isArea() && !isNode(); }
};

/// Whether the position lies within an outer ring and outside its holes.
bool contains(const OsmThing& area, OsmPosition position);

}  // namespace orivanta::importer
