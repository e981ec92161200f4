#include "Apps/DemoVenue/Shapes.hpp"

#include <cmath>
#include <numbers>

namespace orivanta::demo {

namespace {

constexpr double halfLength = 92.0;
constexpr double halfWidth = 64.0;
constexpr double sampling = 2.0;  // degrees between the points of an arc
constexpr double partyWallMeters = 0.4;
constexpr double partyWall = 0.16;  // degrees that each of two neighbors leaves between them

// The block in the west.
constexpr double westBearing = 149.7;    // where its north side meets the facade
constexpr double westCorner = -101.0;    // x where its chamfered corners begin
constexpr double westEnd = -106.0;       // x of its street side
constexpr double westSide = 26.0;        // y where the street side ends
constexpr double westBack = -92.0;       // x of the wall between aisle and hall
constexpr double aisleHalf = 3.5;        // half the aisle's width
constexpr double aisleBearing = 175.65;  // where the aisle's north side meets the corridor

Outline joined(std::vector<Point> first, const std::vector<Point>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// The arc with a corner in the middle, where a door can be placed.
std::vector<Point> front(double depth, double from, double to) {
  const double middle = (from + to) / 2.0;
  auto first = arc(depth, from, middle);
  const auto second = arc(depth, middle, to);
  first.insert(first.end(), second.begin() + 1, second.end());
  return first;
}

}  // namespace

Point at(double depth, double bearing) {
  const double radians = bearing * std::numbers::pi / 180.0;
  return {(halfLength - depth) * std::cos(radians), (halfWidth - depth) * std::sin(radians)};
}

std::vector<Point> arc(double depth, double from, double to) {
  const double sense = from < to ? 1.0 : -1.0;
  std::vector<Point> points = {at(depth, from)};
  for (double next = std::floor(sense * from / sampling) * sampling + sampling;
       next < sense * to - 0.01; next += sampling)
    if (next > sense * from + 0.01) points.push_back(at(depth, sense * next));
  points.push_back(at(depth, to));
  return points;
}

Outline sector(double outerDepth, double innerDepth, double from, double to) {
  return joined(arc(outerDepth, from, to), arc(innerDepth, to, from));
}

Outline oval(double depth) {
  Outline outline = arc(depth, 0.0, 360.0);
  outline.pop_back();
  return outline;
}

std::vector<Point> ovalLine(double depth) {
  constexpr double stride = 3.0;
  std::vector<Point> points = {at(depth, 0.0)};
  for (double bearing = 1.0; bearing < 360.0; bearing += 1.0) {
    const Point next = at(depth, bearing);
    if (distance(next, points.back()) >= stride && distance(next, points.front()) >= stride)
      points.push_back(next);
  }
  return points;
}

Outline mirrored(const Outline& outline) {
  Outline result;
  for (auto point = outline.rbegin(); point != outline.rend(); ++point)
    result.push_back({point->x, -point->y});
  return result;
}

Shape outer(double from, double to) {
  from += partyWall;
  to -= partyWall;
  const double middle = (from + to) / 2.0;
  return {joined(arc(0.0, from, to), front(corridorDepth, to, from)),
          {at(corridorDepth, middle)},
          at(corridorDepth / 2.0, middle)};
}

Shape island(double from, double to, Front side) {
  from += partyWall;
  to -= partyWall;
  const double middle = (from + to) / 2.0;
  Shape shape = {joined(front(islandDepth, from, to), front(galleryDepth, to, from)),
                 {},
                 at((islandDepth + galleryDepth) / 2.0, middle)};
  if (side != Front::gallery) shape.doors.push_back(at(islandDepth, middle));
  if (side != Front::corridor) shape.doors.push_back(at(galleryDepth, middle));
  return shape;
}

Shape kiosk(Point middle, double radius, double bearing) {
  const double radians = bearing * std::numbers::pi / 180.0;
  Outline outline;
  for (const Point corner : circle({}, radius))
    outline.push_back(middle + Point{corner.x * std::cos(radians) - corner.y * std::sin(radians),
                                     corner.x * std::sin(radians) + corner.y * std::cos(radians)});
  return {outline, {outline.front()}, middle};
}

Shape room(const Outline& outline, Point door, Point inside) { return {outline, {door}, inside}; }

Shape ground(const Outline& outline, Point inside) { return {outline, {}, inside}; }

Outline westBlock() {
  const double side = at(0.0, westBearing).y;
  return joined({at(0.0, westBearing),
                 {westCorner, side},
                 {westEnd, westSide},
                 {westEnd, -westSide},
                 {westCorner, -side},
                 at(0.0, 360.0 - westBearing)},
                arc(corridorDepth, 359.5 - westBearing, westBearing + 0.5));
}

Outline westAisle() {
  return joined({{westBack, aisleHalf}, {westBack, -aisleHalf}},
                arc(corridorDepth, 360.0 - aisleBearing, aisleBearing));
}

Shape westHall() {
  const double side = at(0.0, westBearing).y;
  return {{{westBack, -side},
           {westBack, 0.0},
           {westBack, side},
           {westCorner, side},
           {westEnd, westSide},
           {westEnd, -westSide},
           {westCorner, -side}},
          {{westBack, 0.0}},
          {westBack - 7.0, 0.0}};
}

Shape westWingNorth() {
  const double left = westBack + partyWallMeters;
  Outline outline = joined({{left, aisleHalf}, {-83.0, aisleHalf}},
                           arc(corridorDepth, aisleBearing, westBearing + 0.5));
  outline.push_back(at(0.0, westBearing));
  outline.push_back({left, at(0.0, westBearing).y});
  return {outline, {{-83.0, aisleHalf}}, {-80.0, 16.0}};
}

Shape westWingSouth() {
  const Shape north = westWingNorth();
  const auto across = [](Point point) { return Point{point.x, -point.y}; };
  return {mirrored(north.outline), {across(north.doors.front())}, across(north.inside)};
}

}  // namespace orivanta::demo
