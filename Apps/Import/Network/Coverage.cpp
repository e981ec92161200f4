#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "Apps/Import/Network/Attach.hpp"
#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

namespace {

constexpr double farthest = 9.0;   // meters from a line
constexpr double fromWalls = 1.5;  // meters between added nodes and walls
constexpr double step = 4.5;       // between the points that are examined

// Nodes that were added, by squares of `farthest` meters.
class Added {
 public:
  bool isNear(Point point) const {
    const auto [x, y] = squareOf(point);
    for (long dx = -1; dx <= 1; ++dx)
      for (long dy = -1; dy <= 1; ++dy) {
        const auto square = squares_.find({x + dx, y + dy});
        if (square == squares_.end()) continue;
        for (const Point other : square->second)
          if (package::distance(other, point) <= farthest) return true;
      }
    return false;
  }
  void add(Point point) { squares_[squareOf(point)].push_back(point); }

 private:
  static std::pair<long, long> squareOf(Point point) {
    return {std::lround(point.x / farthest), std::lround(point.y / farthest)};
  }
  std::map<std::pair<long, long>, std::vector<Point>> squares_;
};

// Where the borders of a polygon meet the rows of examined points: x by the number of the row.
std::map<long, std::vector<double>> crossingsOf(const Polygon& polygon) {
  std::map<long, std::vector<double>> rows;
  for (const Segment& border : bordersOf({polygon})) {
    const Point low = border.a.y <= border.b.y ? border.a : border.b;
    const Point high = border.a.y <= border.b.y ? border.b : border.a;
    for (long row = std::lround(std::ceil(low.y / step)); static_cast<double>(row) * step < high.y;
         ++row) {
      const double share = (static_cast<double>(row) * step - low.y) / (high.y - low.y);
      rows[row].push_back(low.x + (high.x - low.x) * share);
    }
  }
  for (auto& [row, crossings] : rows) std::sort(crossings.begin(), crossings.end());
  return rows;
}

}  // namespace

// The examined points are multiples of the step, so that they stay when something else moves.
void coverSpace(const Shape& shape, const Space& space, Draft& draft, Attach& attach) {
  Added added;
  const auto examine = [&](Point point) {
    if (attach.distanceToLine(point, farthest) < farthest || added.isNear(point) ||
        space.clearance(point, fromWalls) < fromWalls)
      return;
    if (attach.attach(draft.addWay(point))) added.add(point);
  };
  for (const Polygon& polygon : shape) {
    if (areaOf(polygon) < farthest * farthest) continue;
    for (const auto& [row, crossings] : crossingsOf(polygon))
      for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
        for (double x = std::ceil(crossings[i] / step) * step; x < crossings[i + 1]; x += step)
          examine({x, static_cast<double>(row) * step});
  }
}

}  // namespace orivanta::importer
