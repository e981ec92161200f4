#include "Source/UI/Display/RouteVisits.hpp"

#include <gtest/gtest.h>

#include <map>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta {
namespace {

// A path with a node on each of these floors; its visits as "floor:first-last".
std::string visitsOn(const std::string& floors) {
  std::map<char, std::shared_ptr<Map>> maps;
  NodeList path;
  for (const char floor : floors) {
    auto& map = maps[floor];
    if (!map) map = Map::make(*RawData::parse(std::string(R"({"id": ")") + floor + "\"}"));
    path.push_back(Node::make(*RawData::parse(R"({"id": "n", "x": 0, "y": 0})")));
    path.back()->map = map;
  }
  std::string text;
  for (const RouteVisit& visit : visitsOf(path))
    text += *visit.floor->id + std::to_string(visit.first) + '-' + std::to_string(visit.last) + ' ';
  return text;
}

TEST(RouteVisits, AreThePartsOfTheRouteOnOneFloorEach) {
  const std::pair<const char*, const char*> cases[] = {
      {"a", "a0-0 "},
      {"aab", "a0-1 b2-2 "},
      {"aabccc", "a0-1 c3-5 "},       // through b without a step on it
      {"aabbaa", "a0-1 b2-3 a4-5 "},  // twice on a
      {"aabaa", "a0-1 a3-4 "},
      {"abba", "a0-0 b1-2 a3-3 "},
  };
  for (const auto& [floors, visits] : cases) EXPECT_EQ(visitsOn(floors), visits) << floors;
}

}  // namespace
}  // namespace orivanta
