#include "Source/Guidance/Steps/Simplification.hpp"

#include <algorithm>
#include <utility>

namespace orivanta::guidance {

namespace {

constexpr std::size_t pieceSize = 512;

// Marks the points between two kept ones that must be kept as well.
void markBetween(const std::vector<PlanePoint>& line, std::size_t begin, std::size_t end,
                 double tolerance, std::vector<bool>& kept) {
  std::vector<std::pair<std::size_t, std::size_t>> pieces{{begin, end}};
  while (!pieces.empty()) {
    const auto [first, last] = pieces.back();
    pieces.pop_back();
    std::size_t farthest = first;
    double distance = tolerance;
    for (std::size_t i = first + 1; i < last; ++i) {
      const double other = distanceToSegment(line[i], line[first], line[last]);
      if (other > distance) farthest = i, distance = other;
    }
    if (farthest == first) continue;
    kept[farthest] = true;
    pieces.emplace_back(first, farthest);
    pieces.emplace_back(farthest, last);
  }
}

}  // namespace

std::vector<std::size_t> simplified(const std::vector<PlanePoint>& line, double tolerance) {
  if (line.empty()) return {};
  std::vector<bool> kept(line.size(), false);
  kept.front() = kept.back() = true;
  for (std::size_t begin = 0; begin + 1 < line.size(); begin += pieceSize) {
    const std::size_t end = std::min(begin + pieceSize, line.size() - 1);
    kept[end] = true;
    markBetween(line, begin, end, tolerance, kept);
  }
  std::vector<std::size_t> indices;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (!kept[i]) continue;
    if (!indices.empty() && line[indices.back()] == line[i]) {
      // The last index must remain; it takes the place of its equal.
      if (i + 1 == line.size() && indices.size() > 1) indices.back() = i;
      continue;
    }
    indices.push_back(i);
  }
  return indices;
}

}  // namespace orivanta::guidance
