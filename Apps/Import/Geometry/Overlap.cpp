#include "Apps/Import/Geometry/Overlap.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace orivanta::importer {

namespace {

using package::Box;

Box commonBox(const Shape& first, const Shape& second) {
  const Box a = boxOf(first);
  const Box b = boxOf(second);
  return {{std::max(a.least.x, b.least.x), std::max(a.least.y, b.least.y)},
          {std::min(a.most.x, b.most.x), std::min(a.most.y, b.most.y)}};
}

double surfaceOf(const Box& box) {
  return std::max(0.0, box.most.x - box.least.x) * std::max(0.0, box.most.y - box.least.y);
}

// Horizontal lines through a box. Each is the middle of a row.
constexpr std::size_t rowCount = 32;
using Crossings = std::array<std::vector<double>, rowCount>;

void addCrossings(const Outline& ring, double bottom, double height, Crossings& crossings) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point a = ring[i];
    const Point b = ring[i + 1 < ring.size() ? i + 1 : 0];
    const double low = (std::min(a.y, b.y) - bottom) / height - 0.5;
    const double high = (std::max(a.y, b.y) - bottom) / height - 0.5;
    constexpr auto most = static_cast<double>(rowCount);
    const auto first = static_cast<std::size_t>(std::clamp(std::ceil(low), 0.0, most));
    const auto last = static_cast<std::size_t>(std::clamp(std::ceil(high), 0.0, most));
    for (std::size_t row = first; row < last; ++row) {
      const double y = bottom + (static_cast<double>(row) + 0.5) * height;
      crossings[row].push_back(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
    }
  }
}

// Where the borders of the shape cross the lines, from left to right.
Crossings crossingsOf(const Shape& shape, double bottom, double height) {
  Crossings crossings;
  for (const Polygon& polygon : shape) {
    addCrossings(polygon.outer, bottom, height, crossings);
    for (const Outline& hole : polygon.holes) addCrossings(hole, bottom, height, crossings);
  }
  for (std::vector<double>& row : crossings) std::sort(row.begin(), row.end());
  return crossings;
}

// The length of a line that is in both shapes.
double commonLength(const std::vector<double>& first, const std::vector<double>& second) {
  double sum = 0.0;
  for (std::size_t i = 0, k = 0; i + 1 < first.size() && k + 1 < second.size();) {
    sum += std::max(0.0, std::min(first[i + 1], second[k + 1]) - std::max(first[i], second[k]));
    (first[i + 1] < second[k + 1] ? i : k) += 2;
  }
  return sum;
}

double estimatedOverlap(const Shape& first, const Shape& second, const Box& box) {
  const double height = (box.most.y - box.least.y) / rowCount;
  const Crossings one = crossingsOf(first, box.least.y, height);
  const Crossings other = crossingsOf(second, box.least.y, height);
  double sum = 0.0;
  for (std::size_t row = 0; row < rowCount; ++row) sum += commonLength(one[row], other[row]);
  return sum * height;
}

}  // namespace

double overlapOfBoxes(const Shape& first, const Shape& second) {
  return surfaceOf(commonBox(first, second));
}

bool overlapExceeds(const Shape& first, const Shape& second, double limit) {
  const Box box = commonBox(first, second);
  if (!(surfaceOf(box) > limit)) return false;
  constexpr double uncertain = 0.1;
  const double estimate = estimatedOverlap(first, second, box);
  if (std::abs(estimate - limit) > uncertain * std::max(estimate, limit)) return estimate > limit;
  return areaOf(common(first, second)) > limit;
}

}  // namespace orivanta::importer
