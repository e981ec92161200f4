#include "Source/Guidance/FloorVisits.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <map>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta {
namespace {

// Returns a path with a node on each of these floors. The floors "a" and "b" have the same
// elevation.
NodeList pathOn(const std::string& floors) {
  std::map<char, std::shared_ptr<Map>> maps;
  NodeList path;
  for (const char floor : floors) {
    auto& map = maps[floor];
    if (!map)
      map = Map::make(*RawData::parse(
          fmt::format(R"({{"id": "{}", "elevation": {}}})", floor, floor > 'b' ? 5 : 0)));
    path.push_back(Node::make(*RawData::parse(R"({"id": "n", "x": 0, "y": 0})")));
    path.back()->map = map;
  }
  return path;
}

TEST(FloorVisits, AndChangesOfFloorMakeUpAPath) {
  struct Case {
    const char* floors;
    const char* visits;   // "floor:first-last"
    const char* changes;  // "mark:begin-end"
  };
  for (const Case& each : {Case{"", "", ""},
                           {"a", "a:0-0 ", ""},
                           {"aac", "a:0-1 c:2-2 ", "↑ c:1-2 "},
                           {"aacdddd", "a:0-1 d:3-6 ", "↑ d:1-3 "},  // passes through c
                           {"ccaacc", "c:0-1 a:2-3 c:4-5 ", "↓ a:1-2 ↑ c:3-4 "},
                           {"aacaa", "a:0-1 a:3-4 ", "→ a:1-3 "},
                           {"abba", "a:0-0 b:1-2 a:3-3 ", "→ b:0-1 → a:2-3 "}}) {
    const NodeList path = pathOn(each.floors);
    std::string visits;
    for (const FloorVisit& visit : floorVisits(path))
      visits += fmt::format("{}:{}-{} ", *visit.floor->id, visit.first, visit.last);
    EXPECT_EQ(visits, each.visits) << each.floors;
    std::string changes;
    for (const auto& [begin, end] : floorChanges(path))
      changes +=
          fmt::format("{}:{}-{} ", floorChangeMark(*path[begin]->map, *path[end]->map), begin, end);
    EXPECT_EQ(changes, each.changes) << each.floors;
  }
  EXPECT_EQ(floorLabels(floorsAlong(pathOn("aacaa"))), "a, c, a");
}

}  // namespace
}  // namespace orivanta
