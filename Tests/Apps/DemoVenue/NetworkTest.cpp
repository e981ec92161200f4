#include "Apps/DemoVenue/Network.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>

#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"

namespace orivanta::test {

using demo::Floor;
using demo::NetworkNode;
using demo::Outline;
using demo::Point;

namespace {

const demo::Network& network() {
  static const demo::Network made = demo::makeNetwork(plan());
  return made;
}

const NetworkNode* find(const std::string& id) {
  static const auto byId = [] {
    std::unordered_map<std::string, const NetworkNode*> nodes;
    for (const NetworkNode& node : network().nodes) nodes[node.id] = &node;
    return nodes;
  }();
  const auto entry = byId.find(id);
  return entry == byId.end() ? nullptr : entry->second;
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
    if (demo::cross(from, to, outline[i], outline[(i + 1) % outline.size()])) return true;
  return demo::contains(outline, (from + to) * 0.5);
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
          const Point b = find(path)->position;
          // The door lies on the wall itself, so the test starts a little further along the way.
          const Point from = first ? a + (b - a) * 0.01 : a;
          const Point to = second ? b + (a - b) * 0.01 : b;
          EXPECT_FALSE(runsInto(obstacle.outline, from, to))
              << floor.id << ": " << node.id << " -> " << path << " through " << obstacle.name;
        }
    }
  }
}

TEST(DemoVenueNetwork, NobodyLeavesTheWalkways) {
  for (const Floor& floor : plan().floors)
    for (const NetworkNode& node : network().nodes) {
      if (node.floor != floor.id || node.id.find("-in-") != std::string::npos ||
          node.id.starts_with("stairs"))
        continue;
      for (const std::string& path : node.paths) {
        const NetworkNode& target = *find(path);
        if (path.find("-in-") != std::string::npos || path.starts_with("stairs")) continue;
        for (const double share : {0.0, 0.5}) {
          const Point point = node.position + (target.position - node.position) * share;
          EXPECT_TRUE(std::any_of(floor.walkways.begin(), floor.walkways.end(),
                                  [&](const auto& walkway) {
                                    return demo::contains(walkway.outline, point) ||
                                           demo::distanceToBorder(walkway.outline, point) < 0.05;
                                  }))
              << node.id << " -> " << path << " at " << point.x << ' ' << point.y;
        }
      }
    }
}

TEST(DemoVenueNetwork, EscalatorsRunOneWay) {
  int checked = 0;
  for (const auto& connector : plan().connectors) {
    if (connector.kind != demo::ConnectorKind::Escalator) continue;
    for (const auto& stop : connector.stops) {
      const std::string id = std::string(connector.id) + "-" + std::string(stop.floor);
      const NetworkNode* node = find(id);
      ASSERT_NE(node, nullptr) << id;
      const bool entered =
          std::any_of(network().nodes.begin(), network().nodes.end(), [&](const NetworkNode& each) {
            return std::find(each.paths.begin(), each.paths.end(), id) != each.paths.end();
          });
      EXPECT_EQ(entered, stop.flow == demo::Flow::On) << id;
      EXPECT_EQ(!node->paths.empty(), stop.flow == demo::Flow::Off) << id;
      ++checked;
    }
  }
  EXPECT_EQ(checked, 24);
}

}  // namespace orivanta::test
