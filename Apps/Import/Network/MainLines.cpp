#include "Apps/Import/Network/MainLines.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "Apps/Import/Network/Obstacles.hpp"
#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/Tidy.hpp"
#include "Apps/Import/Network/Trunk.hpp"

namespace orivanta::importer {

namespace {

constexpr double smallHole = 4.0;  // square meters; lines go round smaller obstacles at the end

// A column or a bench, but not a thin wall that encloses something.
bool isSmall(const Outline& hole) {
  Point low = hole.front();
  Point high = low;
  for (const Point point : hole) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
  }
  return (high.x - low.x) * (high.y - low.y) < 2.0 * smallHole &&
         std::abs(package::signedArea(hole)) < smallHole;
}

// Nothing if there are no small holes.
std::optional<Shape> withoutSmallHoles(Shape shape) {
  bool changed = false;
  for (Polygon& polygon : shape) changed |= std::erase_if(polygon.holes, isSmall) > 0;
  if (!changed) return {};
  return united(shape);
}

// Of small spaces, such as vestibules.
std::vector<Point> pointsWithoutLines(const Draft& draft) {
  std::vector<bool> joined(draft.nodes.size());
  for (const DraftEdge& edge : draft.edges) joined[edge.from] = joined[edge.to] = true;
  std::vector<Point> points;
  for (std::size_t i = 0; i < draft.nodes.size(); ++i)
    if (!joined[i]) points.push_back(draft.nodes[i].position);
  return points;
}

}  // namespace

void addMainLines(const Shape& shape, const Space& space, Ways& ways, Draft& draft) {
  if (const auto open = withoutSmallHoles(shape))
    addTrunk(makeSkeleton(*open, nodeClearance), Space(*open), draft);
  else
    addTrunk(ways.skeleton(), space, draft);
  moveOutOfObstacles(draft, space);
  const std::vector<Point> single = pointsWithoutLines(draft);
  avoidObstacles(draft, space, ways);
  joinCrossings(draft);
  mergeNearNodes(space, draft);
  removeUnused(draft);
  for (const Point point : single) draft.addWay(point);
}

}  // namespace orivanta::importer
