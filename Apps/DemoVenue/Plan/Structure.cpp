#include "Apps/DemoVenue/Plan/Structure.hpp"

#include <array>
#include <cmath>
#include <numbers>

namespace orivanta::demo {

namespace {

constexpr double bridgeBearing = 83.76;  // where the bridge, 10 m wide, meets the gallery

Point onCircle(double radius, double bearing) {
  const double radians = bearing * std::numbers::pi / 180.0;
  return {radius * std::cos(radians), radius * std::sin(radians)};
}

void addRadialLine(Floor& floor, double bearing) {
  floor.lines.push_back({{at(23.0, bearing), at(43.0, bearing)}});
}

// A brass dial in the floor: two rings and 24 hour marks.
void addDial(Floor& floor) {
  const auto part = [](double inner, double outer, double from, double to) {
    Outline outline;
    for (double bearing = from; bearing < to + 0.01; bearing += (to - from) / 12.0)
      outline.push_back(onCircle(outer, bearing));
    for (double bearing = to; bearing > from - 0.01; bearing -= (to - from) / 12.0)
      outline.push_back(onCircle(inner, bearing));
    return outline;
  };
  for (double bearing = 0.0; bearing < 360.0; bearing += 45.0) {
    floor.inlays.push_back(part(6.6, 7.0, bearing, bearing + 45.0));
    floor.inlays.push_back(part(13.0, 13.5, bearing, bearing + 45.0));
  }
  for (int hour = 0; hour < 24; ++hour)
    floor.inlays.push_back(
        part(hour % 6 == 0 ? 10.5 : 11.8, 13.0, hour * 15.0 - 0.8, hour * 15.0 + 0.8));
}

Outline bridge() {
  Outline outline = arc(atriumDepth, bridgeBearing, 180.0 - bridgeBearing);
  for (const Point point : arc(atriumDepth, 180.0 + bridgeBearing, 360.0 - bridgeBearing))
    outline.push_back(point);
  return outline;
}

Outline onFacade(const std::vector<Point>& corners, double from, double to) {
  Outline outline = corners;
  for (const Point point : arc(0.0, from, to)) outline.push_back(point);
  return outline;
}

// A walkway all around, in four parts.
void addQuarters(Floor& floor, const std::array<std::string_view, 4>& ids, double outerDepth,
                 double innerDepth) {
  double from = 0.0;
  for (const std::string_view id : ids) {
    floor.walkways.push_back({id, sector(outerDepth, innerDepth, from, from + 90.0)});
    from += 90.0;
  }
}

}  // namespace

void addPlaces(Floor& floor, std::initializer_list<std::vector<Place>> parts) {
  for (const auto& part : parts) floor.places.insert(floor.places.end(), part.begin(), part.end());
}

void addRing(Floor& floor) {
  addQuarters(floor, {"ring-ne", "ring-nw", "ring-sw", "ring-se"}, corridorDepth, islandDepth);
  floor.walkways.push_back({"passage-east", sector(islandDepth, galleryDepth, -16.0, 16.0)});
  floor.walkways.push_back({"passage-north", sector(islandDepth, galleryDepth, 82.0, 98.0)});
  floor.walkways.push_back({"passage-west", sector(islandDepth, galleryDepth, 164.0, 196.0)});
  floor.walkways.push_back({"passage-south", sector(islandDepth, galleryDepth, 262.0, 278.0)});
  floor.lines.push_back({ovalLine(23.0), true});
  floor.lines.push_back({ovalLine(43.0), true});
  for (const double bearing : {10.0, 170.0, 190.0, 350.0}) addRadialLine(floor, bearing);
  for (const double x : {-5.0, 5.0})
    for (const double side : {-1.0, 1.0})
      floor.lines.push_back({{{x, side * 20.0}, {x, side * 41.5}}});
}

void addStore(Floor& floor) {
  floor.walkways.push_back({"store-aisle", westAisle()});
  floor.lines.push_back({{at(23.0, 180.0), {-90.5, 0.0}}});
}

void addCourt(Floor& floor) {
  floor.walkways.push_back({"court", oval(galleryDepth)});
  floor.lines.push_back({circle({}, 10.0, 16), true});
  floor.lines.push_back({{{10.0, 0.0}, {49.0, 0.0}}});
  floor.lines.push_back({{{-10.0, 0.0}, {-49.0, 0.0}}});
  floor.lines.push_back({{{0.0, 10.0}, {0.0, 21.0}}});
  floor.lines.push_back({{{0.0, -10.0}, {0.0, -21.0}}});
  addDial(floor);
  for (const double x : {-37.0, -16.0, 16.0, 37.0})
    for (const double side : {-1.0, 1.0})
      floor.trees.push_back({x, side * (std::abs(x) > 20.0 ? 6.5 : 11.5)});
}

void addGallery(Floor& floor) {
  addQuarters(floor, {"gallery-ne", "gallery-nw", "gallery-sw", "gallery-se"}, galleryDepth,
              atriumDepth);
  floor.walkways.push_back({"bridge", bridge()});
  floor.lines.push_back({{{0.0, 21.0}, {0.0, -21.0}}});
  floor.voids.push_back(arc(atriumDepth, -bridgeBearing, bridgeBearing));
  floor.voids.push_back(arc(atriumDepth, 180.0 - bridgeBearing, 180.0 + bridgeBearing));
}

void addRingSlab(Floor& floor) {
  for (double from = 0.0; from < 360.0; from += 30.0)
    floor.slab.push_back(sector(0.0, atriumDepth, from, from + 30.0));
  floor.slab.push_back(bridge());
}

Outline squareNorth() { return onFacade({{43.0, 84.0}, {-43.0, 84.0}}, 118.0, 62.0); }
Outline squareSouth() { return onFacade({{-43.0, -90.0}, {43.0, -90.0}}, 298.0, 242.0); }
Outline squareEast() { return onFacade({{106.0, -26.0}, {106.0, 26.0}}, 24.0, -24.0); }

Outline lobby(double bearing) { return sector(0.0, corridorDepth, bearing - 4.0, bearing + 4.0); }

}  // namespace orivanta::demo
