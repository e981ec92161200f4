#include "Apps/DemoVenue/Shapes.hpp"

#include <cmath>
#include <numbers>

namespace orivanta::demo {

namespace {

constexpr double halfLength = 92.0;
constexpr double halfWidth = 64.0;
constexpr double sampling = 2.0;    // degrees between the points of an arc
constexpr double partyWall = 0.16;  // degrees that each of two neighbours leaves between them

Outline joined(std::vector<Point> first, const std::vector<Point>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// The arc with a corner in the middle, where a door can be.
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

Shape niche(double from, double to, double backDepth) {
  from += partyWall;
  to -= partyWall;
  const double middle = (from + to) / 2.0;
  return {joined(arc(backDepth, from, to), front(corridorDepth, to, from)),
          {at(corridorDepth, middle)},
          at((backDepth + corridorDepth) / 2.0, middle)};
}

Shape outer(double from, double to) {
  return niche(from, to, 0.0);
}

Shape island(double from, double to, Front side) {
  from += partyWall;
  to -= partyWall;
  const double middle = (from + to) / 2.0;
  Shape shape = {joined(front(islandDepth, from, to), front(galleryDepth, to, from)),
                 {},
                 at((islandDepth + galleryDepth) / 2.0, middle)};
  if (side != Front::Gallery) shape.doors.push_back(at(islandDepth, middle));
  if (side != Front::Corridor) shape.doors.push_back(at(galleryDepth, middle));
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

Shape room(const Outline& outline, Point door, Point inside) {
  return {outline, {door}, inside};
}

Shape ground(const Outline& outline, Point inside) {
  return {outline, {}, inside};
}

Outline westBlock() {
  return joined({at(0.0, 149.7),
                 {-101.0, at(0.0, 149.7).y},
                 {-106.0, 26.0},
                 {-106.0, -26.0},
                 {-101.0, at(0.0, 210.3).y},
                 at(0.0, 210.3)},
                arc(corridorDepth, 209.8, 150.2));
}

}  // namespace orivanta::demo
