#include "Apps/DemoVenue/Network.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <unordered_map>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::test {

using demo::Floor;
using demo::NetworkNode;
using demo::Outline;
using demo::Point;

namespace {

const demo::Plan& plan() {
  static const demo::Plan made = demo::makePlan();
  return made;
}

const demo::Network& network() {
  static const demo::Network made = demo::makeNetwork(plan());
  return made;
}

Point positionOf(const std::string& id) {
  static const auto positions = [] {
    std::unordered_map<std::string, Point> byId;
    for (const NetworkNode& node : network().nodes) byId[node.id] = node.position;
    return byId;
  }();
  return positions.at(id);
}

// An outline that routes must not cross, and the nodes that belong to it.
struct Obstacle {
  std::string name;
  Outline outline;
  std::set<std::string> own;
};

std::vector<Obstacle> obstacles(const Floor& floor) {
  std::vector<Obstacle> all;
  for (const auto& place : floor.places) {
    if (place.shape.doors.empty()) continue;
    const auto& nodes = network().places.at({floor.id, place.id});
    Obstacle obstacle = {std::string(place.id), place.shape.outline, {nodes.inside}};
    obstacle.own.insert(nodes.doors.begin(), nodes.doors.end());
    all.push_back(std::move(obstacle));
  }
  for (const auto& connector : plan().connectors)
    for (const auto& stop : connector.stops) {
      if (stop.floor != floor.id || stop.outline.empty()) continue;
      const std::string id = std::string(connector.id) + "-" + std::string(floor.id);
      all.push_back({std::string(connector.id), stop.outline, {id, id + "-way-1"}});
    }
  for (const Outline& outline : floor.lawns) all.push_back({"lawn", outline, {}});
  for (const Outline& outline : floor.voids) all.push_back({"void", outline, {}});
  for (const Point table : floor.tables)
    all.push_back({"table", demo::circle(table, 0.75, 12), {}});
  for (const Point tree : floor.trees) all.push_back({"tree", demo::circle(tree, 1.0, 12), {}});
  return all;
}

bool runsInto(const Outline& outline, Point from, Point to) {
  for (std::size_t i = 0; i < outline.size(); ++i)
    if (package::cross(from, to, outline[i], outline[(i + 1) % outline.size()])) return true;
  return package::contains(outline, (from + to) * 0.5);
}

}  // namespace

TEST(DemoVenueNetwork, PathsGoThroughDoorsOnly) {
  for (const Floor& floor : plan().floors) {
    const auto all = obstacles(floor);
    for (const NetworkNode& node : network().nodes) {
      if (node.floor != floor.id) continue;
      for (const std::string& path : node.paths)
        for (const Obstacle& obstacle : all) {
          // Edges between the door and the inside of the same place are allowed.
          const bool first = obstacle.own.contains(node.id);
          const bool second = obstacle.own.contains(path);
          if (first && second) continue;
          const Point a = node.position;
          const Point b = positionOf(path);
          // The door lies on the wall itself, so the test starts a little further along the way.
          const Point from = first ? a + (b - a) * 0.01 : a;
          const Point to = second ? b + (a - b) * 0.01 : b;
          EXPECT_FALSE(runsInto(obstacle.outline, from, to))
              << floor.id << ": " << node.id << " -> " << path << " through " << obstacle.name;
        }
    }
  }
}

}  // namespace orivanta::test
