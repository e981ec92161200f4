#include "Source/UI/Labels/LabelAnchor.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <numbers>
#include <queue>
#include <utility>
#include <vector>

namespace orivanta {

namespace {

constexpr double precision = 0.02;
constexpr double leastGain = 0.005;  // a better point must be better by this share
constexpr double leastGainOverMiddle = 0.05;
constexpr std::size_t mostVisits = 8'000'000;
constexpr std::size_t leastCells = 64;
constexpr std::size_t mostCells = 4096;
constexpr double mostFirstCells = 16;  // along the longer side
constexpr std::size_t mostDirections = 4;
constexpr std::size_t fewEdges = 8;  // not worth a selection
constexpr double roundingMargin = 1e-9;

double squaredDistance(graphics::Point point, const LabelEdge& edge) {
  const double x = edge.to.x - edge.from.x;
  const double y = edge.to.y - edge.from.y;
  const double squared = x * x + y * y;
  const double along = (point.x - edge.from.x) * x + (point.y - edge.from.y) * y;
  const double share = squared > 0 ? std::clamp(along / squared, 0.0, 1.0) : 0.0;
  const double acrossX = point.x - edge.from.x - share * x;
  const double acrossY = point.y - edge.from.y - share * y;
  return acrossX * acrossX + acrossY * acrossY;
}

using EdgeList = std::vector<const LabelEdge*>;

double squaredDistance(graphics::Point point, const EdgeList& edges) {
  double nearest = std::numeric_limits<double>::max();
  for (const LabelEdge* edge : edges) nearest = std::min(nearest, squaredDistance(point, *edge));
  return nearest;
}

// A square in which the best point is searched.
struct Cell {
  graphics::Point middle;
  double half = 0;                  // of the side
  double distance = 0;              // of the middle to the boundary; negative outside
  const EdgeList* edges = nullptr;  // all that are nearest to a point of the cell, and others

  // The greatest distance of a point of the cell to its middle.
  double radius() const { return half * std::numbers::sqrt2; }

  // The greatest distance to the boundary that a point of the cell can have.
  double most() const { return distance + radius(); }

  friend bool operator<(const Cell& left, const Cell& right) { return left.most() < right.most(); }
};

class Search {
 public:
  Search(const LabelArea& area, std::span<const LabelArea> areasOnIt) : bounds_(area.bounds()) {
    areas_.push_back(&area);
    for (const LabelArea& other : areasOnIt)
      if (other.bounds().intersects(bounds_)) areas_.push_back(&other);
    for (const LabelArea* each : areas_)
      for (const LabelEdge& edge : each->edges) edges_.push_back(&edge);
  }

  std::optional<LabelAnchor> run() {
    const double longer = std::max(bounds_.size.width, bounds_.size.height);
    const double shorter = std::min(bounds_.size.width, bounds_.size.height);
    if (!(shorter > 0) || !std::isfinite(longer)) return std::nullopt;
    best_ = cell({bounds_.midX(), bounds_.midY()});
    consider(cell(middleOfEdges()));
    const Cell middle = best_;
    const double enough = middle.distance * (1 + leastGainOverMiddle);
    if (middle.distance > 0 && mostDistance() <= enough) return anchorAt(middle);
    addFirstCells(std::max(shorter, longer / mostFirstCells) / 2);
    const std::size_t limit = std::clamp(mostVisits / edges_.size(), leastCells, mostCells);
    const double tiny = shorter * 1e-4;
    while (!cells_.empty() && visited_ < limit) {
      const Cell next = cells_.top();
      if (next.most() <= std::max(best_.distance, tiny) * (1 + precision)) break;
      cells_.pop();
      split(next);
    }
    if (!(best_.distance > 0)) return std::nullopt;
    return anchorAt(best_.distance <= enough ? middle : best_);
  }

 private:
  static LabelAnchor anchorAt(const Cell& found) { return {found.middle, found.distance}; }

  Cell cell(graphics::Point middle, double half = 0) {
    ++visited_;
    const double distance = std::sqrt(squaredDistance(middle, edges_));
    return {middle, half, isInside(middle) ? distance : -distance, &edges_};
  }

  // A cell whose middle is in another one.
  Cell cellIn(const Cell& whole, const EdgeList& edges, graphics::Point middle) {
    ++visited_;
    const double distance = std::sqrt(squaredDistance(middle, edges));
    const bool hasBoundary = std::abs(whole.distance) <= whole.radius();
    const bool inside = hasBoundary ? isInside(middle) : whole.distance > 0;
    return {middle, whole.half / 2, inside ? distance : -distance, &edges};
  }

  bool isInside(graphics::Point point) const {
    return areas_.front()->contains(point) &&
           std::none_of(areas_.begin() + 1, areas_.end(),
                        [&](const LabelArea* other) { return other->contains(point); });
  }

  graphics::Point middleOfEdges() const {
    double x = 0;
    double y = 0;
    double total = 0;
    for (const auto& [from, to] : areas_.front()->edges) {
      const double length = std::hypot(to.x - from.x, to.y - from.y);
      x += (from.x + to.x) / 2 * length;
      y += (from.y + to.y) / 2 * length;
      total += length;
    }
    return {x / total, y / total};
  }

  // Half the width of the area, which no distance to its boundary exceeds, in the direction in
  // which it is least among those of the axes and across some edges.
  double mostDistance() const {
    const std::vector<LabelEdge>& edges = areas_.front()->edges;
    double least = std::min(bounds_.size.width, bounds_.size.height);
    for (std::size_t i = 0; i < std::min(edges.size(), mostDirections); ++i) {
      const double x = edges[i].from.y - edges[i].to.y;
      const double y = edges[i].to.x - edges[i].from.x;
      const double length = std::hypot(x, y);
      if (!(length > 0)) continue;
      double low = std::numeric_limits<double>::max();
      double high = std::numeric_limits<double>::lowest();
      for (const LabelEdge& edge : edges)
        for (const graphics::Point corner : {edge.from, edge.to}) {
          const double along = (x * corner.x + y * corner.y) / length;
          low = std::min(low, along);
          high = std::max(high, along);
        }
      least = std::min(least, high - low);
    }
    return least / 2;
  }

  void consider(const Cell& found) {
    if (found.distance > 0 && found.distance > best_.distance * (1 + leastGain)) best_ = found;
  }

  void addFirstCells(double half) {
    for (double x = bounds_.minX() + half; x < bounds_.maxX() + half; x += 2 * half)
      for (double y = bounds_.minY() + half; y < bounds_.maxY() + half; y += 2 * half)
        add(cell({x, y}, half));
  }

  void add(const Cell& made) {
    consider(made);
    if (made.most() > 0) cells_.push(made);
  }

  void split(const Cell& whole) {
    const double quarter = whole.half / 2;
    const EdgeList& edges = edgesNear(whole);
    for (const double x : {-quarter, quarter})
      for (const double y : {-quarter, quarter})
        add(cellIn(whole, edges, {whole.middle.x + x, whole.middle.y + y}));
  }

  // An edge beyond this distance from the middle is farther from each point of the cell than the
  // one that is nearest to the middle.
  const EdgeList& edgesNear(const Cell& whole) {
    if (whole.edges->size() <= fewEdges) return *whole.edges;
    const double most = (std::abs(whole.distance) + 2 * whole.radius()) * (1 + roundingMargin);
    EdgeList near;
    for (const LabelEdge* edge : *whole.edges)
      if (squaredDistance(whole.middle, *edge) <= most * most) near.push_back(edge);
    return lists_.emplace_back(std::move(near));
  }

  graphics::Rect bounds_;
  std::vector<const LabelArea*> areas_;  // the area, and those on it
  EdgeList edges_;
  std::deque<EdgeList> lists_;  // of parts of the edges
  std::priority_queue<Cell> cells_;
  Cell best_;
  std::size_t visited_ = 0;
};

}  // namespace

// Quadtree search for the pole of inaccessibility: Garcia-Castellanos and Lombardo, "Poles of
// inaccessibility", 2007, with cells in the order of the distance that they may contain.
std::optional<LabelAnchor> labelAnchor(const LabelArea& area,
                                       std::span<const LabelArea> areasOnIt) {
  if (area.edges.empty()) return std::nullopt;
  if (const auto found = Search(area, areasOnIt).run()) return found;
  return areasOnIt.empty() ? std::nullopt : Search(area, {}).run();
}

}  // namespace orivanta
