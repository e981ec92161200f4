// A small venue of two floors, loaded as the library loads one.
//
//   F1 (elevation 10)        u1 -- u2                 lift:   n3, u1 (accessible, weight 2)
//                            |      \                 stairs: n2, u2 (not accessible)
//   G (elevation 0)   n1 -- n2 -- n3   n4 (alone)
//
// n1 to n3 stand at x = 0, 3, 6; u1 and u2 at x = 6 and 3; all paths go both ways.
#pragma once

#include <memory>
#include <string>

#include "Source/Category.hpp"
#include "Source/Loading/VenueLoad.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

/// The collections as JSON; replace what a test is about.
struct TwoFloorVenue {
  std::string venue = R"({"id": "v", "slug": "small", "name": "Small Mall", "unitsPerMetre": 2})";
  std::string maps = R"([{"id": "g", "name": "Ground", "shortName": "G", "elevation": 0},
                         {"id": "f1", "name": "First", "shortName": "F1", "elevation": 10}])";
  std::string nodes = R"([
      {"id": "n1", "map": "g", "x": 0, "y": 0, "paths": [{"node": "n2"}]},
      {"id": "n2", "map": "g", "x": 3, "y": 0, "paths": [{"node": "n1"}, {"node": "n3"}]},
      {"id": "n3", "map": "g", "x": 6, "y": 0, "paths": [{"node": "n2"}]},
      {"id": "n4", "map": "g", "x": 9, "y": 9},
      {"id": "u1", "map": "f1", "x": 6, "y": 0, "paths": [{"node": "u2"}]},
      {"id": "u2", "map": "f1", "x": 3, "y": 0, "paths": [{"node": "u1"}]}])";
  std::string vortices = R"([
      {"id": "lift", "name": "Lift A", "type": "elevator", "weight": 2, "nodes": ["n3", "u1"]},
      {"id": "stairs", "name": "Stairs B", "type": "stairs", "accessible": false,
       "nodes": ["n2", "u2"]}])";
  std::string categories = R"([{"id": "c1", "name": "Shops"},
                               {"id": "c2", "name": "Food", "parents": ["c1"]}])";
  std::string polygons = R"([{"id": "p1", "map": "g"}, {"id": "p2", "map": "f1"}])";
  std::string locations = R"([
      {"id": "l1", "name": "Bakery", "type": "shop", "nodes": [{"node": "n1"}],
       "categories": ["c2"]},
      {"id": "l2", "name": "Book Shop", "type": "shop", "nodes": [{"node": "u2"}],
       "categories": ["c1"], "polygons": [{"id": "p2"}]}])";

  /// Delivers the polygons before or after the other collections; after them the links of some
  /// kinds are made twice.
  std::shared_ptr<Venue> load(bool accessible = false, bool polygonsLast = false) const {
    activeVenue = Venue::make(*RawData::parse(venue));
    const auto load = std::make_shared<VenueLoad>(accessible, [](const auto&) {});
    if (!polygonsLast) load->receive(&CollectionDictionary::polygons, recordsIn<Polygon>(polygons));
    load->receive(&CollectionDictionary::locations, recordsIn<Location>(locations));
    load->receive(&CollectionDictionary::categories, recordsIn<Category>(categories));
    load->receive(&CollectionDictionary::maps, recordsIn<Map>(maps));
    load->receive(&CollectionDictionary::nodes, recordsIn<Node>(nodes));
    load->receive(&CollectionDictionary::vortices, recordsIn<Vortex>(vortices));
    if (polygonsLast) load->receive(&CollectionDictionary::polygons, recordsIn<Polygon>(polygons));
    return activeVenue;
  }
};

}  // namespace orivanta::test
