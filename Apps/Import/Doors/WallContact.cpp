#include "Apps/Import/Doors/WallContact.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

namespace {

constexpr double sampleStep = 0.2;
constexpr double narrowestDoor = 0.6;
constexpr double usualWidth = 1.0;

// The longest part of one wall behind which all samples are.
WallContact contactOf(const Segment& wall, const Behind& behind) {
  const Point along = wall.b - wall.a;
  const double length = package::length(along);
  const Point outward = Point{along.y, -along.x} * (1.0 / std::max(length, 1e-9));
  const auto count = static_cast<int>(std::clamp(std::ceil(length / sampleStep), 1.0, 2000.0));
  WallContact best{wall.a, wall.a};
  int begin = 0;
  for (int i = 0; i <= count; ++i) {
    const Point middle = wall.a + along * ((i + 0.5) / count);
    const bool touches =
        i < count && std::any_of(wallDepths.begin(), wallDepths.end(),
                                 [&](double depth) { return behind(middle + outward * depth); });
    if (touches) continue;
    const WallContact contact{wall.a + along * (static_cast<double>(begin) / count),
                              wall.a + along * (static_cast<double>(i) / count)};
    if (contact.length() > best.length()) best = contact;
    begin = i + 1;
  }
  return best;
}

}  // namespace

std::vector<Segment> straightWalls(const Shape& shape) {
  std::vector<Segment> walls;
  for (const Segment& border : bordersOf(shape)) {
    if (!walls.empty() && package::distance(walls.back().b, border.a) == 0.0) {
      const Point before = walls.back().b - walls.back().a;
      const Point after = border.b - border.a;
      constexpr double sameDirection = 0.05;
      if (std::abs(package::cross(before, after)) <
              sameDirection * package::length(before) * package::length(after) &&
          package::dot(before, after) > 0.0) {
        walls.back().b = border.b;
        continue;
      }
    }
    walls.push_back(border);
  }
  return walls;
}

std::optional<WallContact> longestContact(const Shape& room, const Behind& behind) {
  WallContact best;
  for (const Segment& wall : straightWalls(room)) {
    if (package::distance(wall.a, wall.b) <= best.length() + 0.05) continue;
    const WallContact contact = contactOf(wall, behind);
    if (contact.length() > best.length() + 0.05) best = contact;
  }
  if (best.length() < narrowestDoor) return {};
  return best;
}

Door guessedDoor(const Area& room, const WallContact& contact) {
  Door door;
  door.id = room.id + "/door";
  door.source = room.source;
  door.level = room.level;
  door.position = (contact.from + contact.to) * 0.5;
  door.width = std::min(contact.length(), usualWidth);
  const Point half = (contact.to - contact.from) * (*door.width / contact.length() / 2.0);
  door.line = {door.position - half, door.position + half};
  door.guessed = true;
  door.areas = {room.id};
  return door;
}

}  // namespace orivanta::importer
