#include "Source/Guidance/Steps/Overshoots.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <vector>

#include "Source/Guidance/Steps/Simplification.hpp"

namespace orivanta::guidance {

namespace {

constexpr double shortMeters = 3.0;

bool isOvershoot(const WalkLine& line, std::size_t before, std::size_t tip, std::size_t after) {
  const PlanePoint begin = line.point(before);
  const PlanePoint corner = line.point(tip);
  const PlanePoint end = line.point(after);
  const double there = length(corner - begin);
  const double back = length(end - corner);
  const double shorter = std::min(there, back);
  const double degrees = std::abs(degreesBetween(corner - begin, end - corner));
  if (degrees >= 120.0 && shorter <= shortMeters) return true;
  constexpr double nearEnd = 25.0;  // meters
  const double rest = line.along(line.size() - 1) - line.along(tip);
  if (degrees < 150.0 || shorter > 15.0 || std::min(line.along(tip), rest) > nearEnd) return false;
  const double apart =
      there < back ? distanceToSegment(begin, corner, end) : distanceToSegment(end, begin, corner);
  return apart <= 4.0;
}

// Whether the way through a door leads straight on to or from the tip: then the way back is real.
bool isThroughDoor(const WalkLine& line, const WalkEnds& ends, std::size_t before, std::size_t tip,
                   std::size_t after) {
  const auto straight = [&](std::size_t first, std::size_t door, std::size_t last) {
    return std::abs(degreesBetween(line.point(door) - line.point(first),
                                   line.point(last) - line.point(door))) < 15.0;
  };
  if (std::min(length(line.point(tip) - line.point(before)),
               length(line.point(tip) - line.point(after))) <= shortMeters)
    return false;
  const bool hasInside = before > 0 && before == ends.entrance;
  const bool leadsInside = after + 1 < line.size() && after == ends.destination;
  return (hasInside && straight(before - 1, before, tip)) ||
         (leadsInside && straight(tip, after, after + 1));
}

// The corners of the simplified line and the entrances.
std::set<std::size_t> cornersOf(const WalkLine& line, const WalkEnds& ends) {
  const auto simple = simplified(line.points(), 1.0);
  std::set<std::size_t> corners(simple.begin(), simple.end());
  corners.insert({ends.entrance, ends.destination});
  return corners;
}

}  // namespace

void removeOvershoots(WalkLine& line, const WalkEnds& ends) {
  // Where the walk does not start at an entrance, its first segment may lead out of a door.
  const std::size_t first = ends.hasEntrance ? ends.entrance : 1;
  const std::size_t end = ends.hasDestination ? ends.destination + 1 : line.size() - 1;
  const auto canRemove = [&](std::size_t before, std::size_t tip, std::size_t after) {
    return before >= first && after < end && isOvershoot(line, before, tip, after) &&
           !isThroughDoor(line, ends, before, tip, after);
  };
  std::vector<std::size_t> kept;
  std::vector<bool> isStraightened;  // whether corners before this one were removed
  for (const std::size_t corner : cornersOf(line, ends)) {
    bool removed = false;
    while (kept.size() >= 2 && canRemove(kept[kept.size() - 2], kept.back(), corner)) {
      kept.pop_back();
      isStraightened.pop_back();
      removed = true;
    }
    kept.push_back(corner);
    isStraightened.push_back(removed);
  }
  for (std::size_t i = 1; i < kept.size(); ++i)
    if (isStraightened[i]) line.straighten(kept[i - 1], kept[i]);
  line.measure();
}

}  // namespace orivanta::guidance
