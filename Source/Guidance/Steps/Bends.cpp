#include "Source/Guidance/Steps/Bends.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Guidance/Steps/Simplification.hpp"

namespace orivanta::guidance {

namespace {

constexpr double tolerance = 1.0;       // meters that a point may lie beside the simplified line
constexpr double oneBendMeters = 3.0;   // bends that are closer are one
constexpr double oneTurnMeters = 10.0;  // bends to the same side that are as close may be one

double gap(const WalkLine& line, const Bend& left, const Bend& right) {
  return line.along(right.first) - line.along(left.last);
}

bool isOneTurn(const WalkLine& line, const Bend& left, const Bend& right) {
  const double a = std::abs(left.degrees);
  const double b = std::abs(right.degrees);
  return gap(line, left, right) <= oneTurnMeters && left.degrees * right.degrees > 0.0 &&
         (a < 70.0 || b < 70.0) && a + b < 160.0;
}

bool isOneBend(const WalkLine& line, const Bend& left, const Bend& right) {
  return gap(line, left, right) < oneBendMeters;
}

std::vector<Bend> merged(const WalkLine& line, const std::vector<Bend>& bends,
                         bool (*areOne)(const WalkLine&, const Bend&, const Bend&)) {
  std::vector<Bend> result;
  for (const Bend& bend : bends) {
    if (result.empty() || !areOne(line, result.back(), bend)) {
      result.push_back(bend);
      continue;
    }
    result.back().last = bend.last;
    result.back().degrees += bend.degrees;
  }
  return result;
}

// A little more than a half turn keeps its side; the sum of more is a loop or a zigzag.
double netDegrees(double sum) {
  if (std::abs(sum) > 225.0) sum = std::remainder(sum, 360.0);
  return std::clamp(sum, -180.0, 180.0);
}

}  // namespace

std::vector<Bend> bendsOf(const WalkLine& line) {
  const std::vector<std::size_t> corners = simplified(line.points(), tolerance);
  std::vector<Bend> bends;
  for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
    const PlanePoint corner = line.point(corners[i]);
    bends.push_back(
        {corners[i], corners[i],
         degreesBetween(corner - line.point(corners[i - 1]), line.point(corners[i + 1]) - corner)});
  }
  bends = merged(line, merged(line, bends, isOneBend), isOneTurn);
  for (Bend& bend : bends) bend.degrees = netDegrees(bend.degrees);
  return bends;
}

}  // namespace orivanta::guidance
