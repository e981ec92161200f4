#include "Apps/Import/Connectors/StepEdges.hpp"

#include <array>
#include <cmath>

namespace orivanta::importer {

namespace {

using package::dot;

constexpr std::array sides = {Side::start, Side::end, Side::left, Side::right};
constexpr double parallel = 0.9;     // least cosine between an edge and the side
constexpr double leastLength = 0.4;  // of the side
constexpr double outerPart = 0.3;    // from the middle (0) to the side (1)

}  // namespace

std::optional<Point> stepsAt(const Piece& piece, Side side) {
  const OrientedBox& box = piece.box;
  const double sign = side == Side::end || side == Side::left ? 1.0 : -1.0;
  const Point outward = (isShort(side) ? box.along : box.across()) * sign;
  const Point beside = isShort(side) ? box.across() : box.along;
  const double depth = isShort(side) ? box.length : box.width;
  const double breadth = isShort(side) ? box.width : box.length;
  std::optional<Point> outermost;
  double farthest = outerPart * depth / 2.0;
  for (const auto& [start, end] : piece.stepEdges) {
    const double length = package::distance(start, end);
    if (length < leastLength * breadth || std::abs(dot(end - start, beside)) < parallel * length)
      continue;
    const Point middle = (start + end) * 0.5;
    const double away = dot(middle - box.center, outward);
    if (away <= farthest) continue;
    farthest = away;
    outermost = middle;
  }
  return outermost;
}

std::optional<Side> onlySideWithSteps(const Piece& piece) {
  std::optional<Side> only;
  for (const Side side : sides) {
    if (!stepsAt(piece, side)) continue;
    if (only) return std::nullopt;
    only = side;
  }
  return only;
}

bool hasStepsAcross(const Piece& piece) {
  return (stepsAt(piece, Side::start) && stepsAt(piece, Side::end)) ||
         (stepsAt(piece, Side::left) && stepsAt(piece, Side::right));
}

}  // namespace orivanta::importer
