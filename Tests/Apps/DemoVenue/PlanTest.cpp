#include "Apps/DemoVenue/Plan.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"

namespace orivanta::test {

using demo::Floor;
using demo::Outline;
using demo::Place;
using demo::Point;

namespace {

constexpr double tolerance = 0.05;  // meters: chords of the same arc may be divided differently

struct Named {
  std::string name;
  Outline outline;
};

// The places, connectors, lawns and trees of a floor.
std::vector<Named> standing(const Floor& floor) {
  std::vector<Named> all;
  for (const Place& place : floor.places)
    all.push_back({std::string(place.id), place.shape.outline});
  for (const auto& connector : plan().connectors)
    for (const auto& stop : connector.stops)
      if (stop.floor == floor.id && !stop.outline.empty())
        all.push_back({std::string(connector.id), stop.outline});
  for (const Outline& lawn : floor.lawns) all.push_back({"lawn", lawn});
  for (const Point tree : floor.trees) all.push_back({"tree", demo::circle(tree, 1.0, 12)});
  return all;
}

bool wellInside(const Outline& outline, Point point) {
  return demo::contains(outline, point) && demo::distanceToBorder(outline, point) > tolerance;
}

// Corners and midpoints of edges, moved inward a little so that shared walls do not count.
std::vector<Point> probes(const Outline& outline) {
  const Outline inner = demo::grown(outline, -0.02);
  std::vector<Point> points;
  for (std::size_t i = 0; i < inner.size(); ++i) {
    points.push_back(inner[i]);
    points.push_back((inner[i] + inner[(i + 1) % inner.size()]) * 0.5);
  }
  return points;
}

bool overlap(const Outline& first, const Outline& second) {
  const auto inside = [](const Outline& outline) {
    return [&outline](Point point) { return wellInside(outline, point); };
  };
  const auto ofFirst = probes(first);
  const auto ofSecond = probes(second);
  return std::any_of(ofFirst.begin(), ofFirst.end(), inside(second)) ||
         std::any_of(ofSecond.begin(), ofSecond.end(), inside(first));
}

}  // namespace

void expectApart(const Floor& floor, const std::vector<Named>& all) {
  for (std::size_t i = 0; i < all.size(); ++i)
    for (std::size_t k = i + 1; k < all.size(); ++k) {
      const bool mayOverlap = all[i].name == "lawn" && all[k].name == "tree";
      EXPECT_TRUE(mayOverlap || !overlap(all[i].outline, all[k].outline))
          << floor.id << ": " << all[i].name << " and " << all[k].name;
    }
}

TEST(DemoVenuePlan, NothingOnAFloorOverlaps) {
  for (const Floor& floor : plan().floors) {
    expectApart(floor, standing(floor));
    std::vector<Named> ways;
    for (const auto& walkway : floor.walkways)
      ways.push_back({std::string(walkway.id), walkway.outline});
    for (const Outline& outline : floor.voids) ways.push_back({"void", outline});
    expectApart(floor, ways);
  }
}

TEST(DemoVenuePlan, DoorsAreInTheirOwnWall) {
  for (const Floor& floor : plan().floors)
    for (const Place& place : floor.places) {
      EXPECT_TRUE(demo::contains(place.shape.outline, place.shape.inside))
          << floor.id << ' ' << place.id;
      for (const Point door : place.shape.doors) {
        EXPECT_LT(demo::distanceToBorder(place.shape.outline, door), 0.001)
            << floor.id << ' ' << place.id;
      }
    }
}

}  // namespace orivanta::test
