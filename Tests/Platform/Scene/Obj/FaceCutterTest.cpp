// Triangles cover their face exactly if none is inverted and their areas add up to the face's.
// There are no gaps if every side of a triangle is a complete side of another triangle or of the
// face.
#include "Platform/Scene/Obj/FaceCutter.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <numbers>
#include <random>
#include <sstream>
#include <string>

namespace orivanta::scene::obj {
namespace {

using Outline = std::vector<Point>;

struct Areas {
  double face = 0.0;
  double triangles = 0.0;  // sum of the areas
  double inverted = 0.0;   // area of the triangles with the opposite orientation
};

Areas cutAreas(const Outline& outline) {
  FaceCutter cutter;
  const auto normal = areaVector(outline);
  Areas areas;
  areas.face = std::hypot(normal[0], normal[1], normal[2]) / 2.0;
  const auto triangles = cutter.cut(outline);
  for (std::size_t i = 0; i < triangles.size(); i += 3) {
    const Outline triangle{outline.at(triangles[i]), outline.at(triangles[i + 1]),
                           outline.at(triangles[i + 2])};
    const auto cut = areaVector(triangle);
    const double area = std::hypot(cut[0], cut[1], cut[2]) / 2.0;
    areas.triangles += area;
    if (cut[0] * normal[0] + cut[1] * normal[1] + cut[2] * normal[2] < 0.0) areas.inverted += area;
  }
  return areas;
}

// Counts how much more often each side is used in one direction than in the other.
class Sides {
 public:
  void add(const Point& from, const Point& to, int times) {
    if (from == to) return;
    (from < to ? surplus_[{from, to}] : surplus_[{to, from}]) += from < to ? times : -times;
  }

  bool areLevel() const {
    return std::all_of(surplus_.begin(), surplus_.end(),
                       [](const auto& side) { return side.second == 0; });
  }

 private:
  std::map<std::pair<Point, Point>, int> surplus_;
};

// The fraction of the way from one point to another at which a third point lies; negative if it
// does not lie on the way.
double shareOfWay(const Point& from, const Point& to, const Point& point) {
  std::array<double, 3> way{};
  std::array<double, 3> part{};
  for (std::size_t i = 0; i < 3; ++i) {
    way.at(i) = static_cast<double>(to[i]) - static_cast<double>(from[i]);
    part.at(i) = static_cast<double>(point[i]) - static_cast<double>(from[i]);
  }
  for (std::size_t i = 0; i < 3; ++i)
    if (way[i] * part[(i + 1) % 3] != way[(i + 1) % 3] * part[i]) return -1.0;
  return (way[0] * part[0] + way[1] * part[1] + way[2] * part[2]) /
         (way[0] * way[0] + way[1] * way[1] + way[2] * way[2]);
}

// A side of the outline with other corners on it counts as several sides.
bool leavesNoGaps(const Outline& outline) {
  Sides sides;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point& to = outline[(i + 1) % outline.size()];
    std::map<double, Point> stops{{1.0, to}};
    for (const Point& corner : outline)
      if (const double share = shareOfWay(outline[i], to, corner); share > 0.0 && share < 1.0)
        stops[share] = corner;
    Point from = outline[i];
    for (const auto& [share, stop] : stops) sides.add(std::exchange(from, stop), stop, -1);
  }
  FaceCutter cutter;
  const auto triangles = cutter.cut(outline);
  for (std::size_t i = 0; i < triangles.size(); ++i)
    sides.add(outline[triangles[i]], outline[triangles[i % 3 == 2 ? i - 2 : i + 1]], 1);
  return sides.areLevel();
}

void expectCovered(const Outline& outline, const std::string& name) {
  constexpr std::size_t mostToCompare = 200;  // each corner is compared with each side
  const Areas areas = cutAreas(outline);
  EXPECT_TRUE(outline.size() > mostToCompare || leavesNoGaps(outline)) << name;
  EXPECT_NEAR(areas.triangles, areas.face, 1e-5 * areas.face) << name;
  EXPECT_LE(areas.inverted, 1e-6 * areas.face) << name;
}

// On a floor, on walls and on a slope; from both sides; starting at several corners.
void expectCoveredFromEverywhere(const Outline& flat, const std::string& name) {
  const std::function<Point(const Point&)> planes[] = {
      [](const Point& p) { return p; },
      [](const Point& p) {
        return Point{p[0], 3.0F, p[1]};
      },
      [](const Point& p) {
        return Point{-2.0F, p[0], p[1]};
      },
      [](const Point& p) {
        return Point{p[0], p[1], 0.5F * p[0] - 0.25F * p[1]};
      }};
  for (const auto& plane : planes) {
    Outline outline;
    for (const Point& point : flat) outline.push_back(plane(point));
    for (std::size_t start = 0; start < std::min<std::size_t>(outline.size(), 5); ++start) {
      expectCovered(outline, name);
      std::rotate(outline.begin(), outline.begin() + 1, outline.end());
    }
    std::reverse(outline.begin(), outline.end());
    expectCovered(outline, name + " reversed");
  }
}

// Parses corners such as "0 0, 4 0, 0 4".
Outline flat(const std::string& corners) {
  Outline outline;
  std::istringstream numbers(corners);
  for (Point corner{}; numbers >> corner[0] >> corner[1]; numbers.ignore())
    outline.push_back(corner);
  return outline;
}

// Teeth on a bar, rotated so that bounding boxes of teeth are not narrow.
Outline comb(int teeth, double turnBy) {
  std::vector<std::array<double, 2>> points{{0.0, -1.0}};
  for (int i = 0; i < teeth; ++i) {
    const double tooth = i;
    points.push_back({tooth, 0.0});
    points.push_back({tooth + 0.5, static_cast<double>(teeth)});
  }
  points.push_back({static_cast<double>(teeth), 0.0});
  points.push_back({static_cast<double>(teeth), -1.0});
  Outline outline;
  for (auto point = points.rbegin(); point != points.rend(); ++point) {
    const auto [x, y] = *point;
    outline.push_back({static_cast<float>(x * std::cos(turnBy) - y * std::sin(turnBy)),
                       static_cast<float>(x * std::sin(turnBy) + y * std::cos(turnBy)), 0.0F});
  }
  return outline;
}

Outline around(int count, const std::function<double(int)>& radius, double turns = 1.0) {
  Outline outline;
  for (int i = 0; i < count; ++i) {
    const double angle = 2.0 * std::numbers::pi * turns * i / count;
    const double length = radius(i);
    outline.push_back({static_cast<float>(length * std::cos(angle)),
                       static_cast<float>(length * std::sin(angle)), 0.0F});
  }
  return outline;
}

// A band that spirals outward: along its outer edge and back along its inner edge.
Outline spiral(int count, double turns) {
  const auto edge = [&](double width) {
    return around(
        count, [=](int i) { return 1.0 + width + turns * i / count; }, turns);
  };
  Outline outline = edge(0.6);
  Outline inner = edge(0.0);
  outline.insert(outline.end(), inner.rbegin(), inner.rend());
  return outline;
}

TEST(FaceCutter, CoversOutlinesOfEveryKind) {
  const std::pair<const char*, Outline> outlines[] = {
      {"triangle", flat("0 0, 4 0, 0 4")},
      {"square", flat("0 0, 4 0, 4 4, 0 4")},
      {"arrowhead", flat("0 0, 4 -3, 1 0, 4 3")},
      {"quadrilateral with a straight corner", flat("0 0, 2 0, 4 0, 2 3")},
      {"quadrilateral with a corner twice", flat("0 0, 4 0, 4 0, 2 3")},
      {"quadrilateral with a spike", flat("0 0, 6 0, 4 0, 2 3")},
      {"diagonal through a corner", flat("0 0, 4 0, 4 2, 2 2, 2 4, 0 4")},
      {"straight runs", flat("0 0, 1 0, 2 0, 3 0, 3 1, 3 2, 3 3, 1 3, 0 3, 0 1")},
      {"corners twice", flat("0 0, 0 0, 3 0, 3 3, 3 3, 3 3, 1 1, 0 3")},
      {"spikes", flat("0 0, 3 0, 5 0, 3 0, 3 3, 2 3, 2 5, 2 3, 0 3")},
      {"spike inwards", flat("0 0, 4 0, 4 4, 2 4, 2 1, 2 4, 0 4")},
      {"hole", flat("0 0, 6 0, 6 6, 0 6, 0 0, 2 2, 2 4, 4 4, 4 2, 2 2")},
      {"two holes at one corner",
       flat("0 0, 9 0, 9 9, 0 9, 0 0, 1 4, 1 8, 3 8, 3 4, 1 4, 0 0, 5 1, 5 5, 8 5, 8 1, 5 1")},
      {"hole that touches a side", flat("0 0, 6 0, 6 6, 0 6, 0 0, 2 2, 3 6, 4 2, 2 2")},
      {"petals at one point",
       flat("0 0, 4 -1, 4 1, 0 0, 1 4, -1 4, 0 0, -4 1, -4 -1, 0 0, -1 -4, 1 -4")},
      {"notch to the opposite side", flat("0 0, 2 0, 3 4, 4 0, 6 0, 6 4, 0 4")},
      {"comb", comb(9, 0.0)},
      {"turned comb", comb(9, 0.6)},
      {"spiral", spiral(60, 4.0)},
  };
  for (const auto& [name, outline] : outlines) {
    ASSERT_GT(cutAreas(outline).face, 0.0) << name;
    expectCoveredFromEverywhere(outline, name);
  }
}

TEST(FaceCutter, CoversRandomStars) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> radius(0.05, 1.0);
  for (int round = 0; round < 2'000; ++round)
    expectCovered(around(3 + round % 50, [&](int) { return 100.0 * radius(random); }),
                  std::to_string(round));
}

// Two staircases, one above the other: the corners lie on a few lines, and the staircases touch.
TEST(FaceCutter, CoversRandomStairs) {
  std::mt19937 random(2);
  for (int round = 0; round < 2'000; ++round) {
    Outline upper;
    Outline lower;
    const auto step = [&](Outline& side, int column, unsigned from) {
      const auto height = static_cast<float>(from + random() % 5);
      side.push_back({static_cast<float>(column), height, 0.0F});
      side.push_back({static_cast<float>(column + 1), height, 0.0F});
    };
    for (int column = 0; column < 3 + round % 8; ++column) {
      step(upper, column, 4);
      step(lower, column, 0);
    }
    Outline outline = lower;
    outline.insert(outline.end(), upper.rbegin(), upper.rend());
    expectCovered(outline, std::to_string(round));
  }
}

TEST(FaceCutter, NothingComesOfNoArea) {
  for (const Outline& outline : {Outline{}, flat("1 1, 2 2"), flat("1 1, 1 1, 1 1"),
                                 flat("0 0, 1 1, 3 3, 2 2"), flat("0 0, 1 0, 4 0, 2 0, 3 0")})
    EXPECT_EQ(outline.size() < 3 ? 0.0 : cutAreas(outline).triangles, 0.0);
}

// Parts of a self-intersecting outline may be counted several times, but the sum stays the same.
TEST(FaceCutter, CrossingOutlinesKeepTheSumOfTheirArea) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> place(0.0F, 9.0F);
  for (int round = 0; round < 500; ++round) {
    Outline outline;
    for (int i = 0; i < 4 + round % 40; ++i) outline.push_back({place(random), place(random), 0});
    const Areas areas = cutAreas(outline);
    EXPECT_NEAR(areas.triangles - 2.0 * areas.inverted, areas.face, 1e-3) << round;
  }
}

// With one step per pair of corners, these would take minutes.
TEST(FaceCutter, CutsFacesOfAHundredThousandCorners) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> radius(0.5, 1.0);
  constexpr int count = 100'000;
  expectCovered(around(count, [](int) { return 1e4; }), "circle");
  expectCovered(around(count, [&](int) { return 1e4 * radius(random); }), "star");
  expectCovered(comb(count / 2, 0.6), "comb");
  expectCovered(spiral(count / 2, 100.0), "spiral");
}

}  // namespace
}  // namespace orivanta::scene::obj
