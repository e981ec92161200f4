// A package whose only route leaves a floor and comes back to it.
//
//   U              u1 ------------- u2
//                  | lift           | stairs
//   G   g1 ------- g2               g3 ------- g4
//     Bakery                                 Museum
//   x:  0          100              400        500
#pragma once

#include <fmt/format.h>

#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {

/// The venue "visits" in the folder "visits".
inline void writeTwoVisitsPackage(const TemporaryFolder& root, const std::string& attribution) {
  root.write("visits/venue.json", fmt::format(R"({{"id": "v", "slug": "visits", "name": "Visits",
                              "unitsPerMetre": 2, "attribution": "{}", "license": "CC0"}})",
                                              attribution));
  root.write("visits/map.json",
             R"([{"id": "g", "name": "Ground", "shortName": "G", "elevation": 0,
                  "scene": {"obj": "floor.obj"}},
                 {"id": "u", "name": "Upper", "shortName": "U", "elevation": 10,
                  "scene": {"obj": "floor.obj"}}])");
  root.write("visits/node.json",
             R"([{"id": "g1", "map": "g", "x": 0, "y": 0, "paths": [{"node": "g2"}]},
                 {"id": "g2", "map": "g", "x": 100, "y": 0, "paths": [{"node": "g1"}]},
                 {"id": "u1", "map": "u", "x": 100, "y": 0, "paths": [{"node": "u2"}]},
                 {"id": "u2", "map": "u", "x": 400, "y": 0, "paths": [{"node": "u1"}]},
                 {"id": "g3", "map": "g", "x": 400, "y": 0, "paths": [{"node": "g4"}]},
                 {"id": "g4", "map": "g", "x": 500, "y": 0, "paths": [{"node": "g3"}]}])");
  root.write("visits/vortex.json",
             R"([{"id": "a", "name": "Lift", "type": "elevator", "nodes": ["g2", "u1"]},
                 {"id": "b", "name": "Stairs", "type": "stairs", "nodes": ["u2", "g3"]}])");
  root.write("visits/location.json",
             R"([{"id": "bakery", "name": "Bakery", "type": "shop", "nodes": [{"node": "g1"}]},
                 {"id": "museum", "name": "Museum", "type": "shop", "nodes": [{"node": "g4"}]}])");
  for (const char* name : {"visits/category.json", "visits/polygon.json"}) root.write(name, "[]");
  root.write("visits/floor.obj",
             "v -50 -200 0\nv 550 -200 0\nv 550 200 0\nv -50 200 0\nf 1 2 3 4\n");
}

}  // namespace orivanta::test
