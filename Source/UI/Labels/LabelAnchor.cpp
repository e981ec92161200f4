#include "Source/UI/Labels/LabelAnchor.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <queue>
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

// A square in which the best point is searched.
struct Cell {
  graphics::Point middle;
  double half = 0;      // of the side
  double distance = 0;  // of the middle to the boundary; negative outside
  double most = 0;      // the greatest distance that a point of the cell can have

  friend bool operator<(const Cell& left, const Cell& right) { return left.most < right.most; }
};

class Search {
 public:
  Search(const LabelArea& area, std::span<const LabelArea> areasOnIt)
      : area_(area), bounds_(area.bounds()) {
    edges_ = area.edges.size();
    for (const LabelArea& other : areasOnIt)
      if (other.bounds().intersects(bounds_)) {
        areasOnIt_.push_back(&other);
        edges_ += other.edges.size();
      }
  }

  std::optional<LabelAnchor> run() {
    const double longer = std::max(bounds_.size.width, bounds_.size.height);
    const double shorter = std::min(bounds_.size.width, bounds_.size.height);
    if (!(shorter > 0) || !std::isfinite(longer)) return std::nullopt;
    best_ = cell({bounds_.midX(), bounds_.midY()}, 0);
    consider(cell(middleOfEdges(), 0));
    const Cell middle = best_;
    addFirstCells(std::max(shorter, longer / mostFirstCells) / 2);
    const std::size_t limit = std::clamp(mostVisits / edges_, leastCells, mostCells);
    const double tiny = shorter * 1e-4;
    while (!cells_.empty() && visited_ < limit) {
      const Cell next = cells_.top();
      if (next.most <= std::max(best_.distance, tiny) * (1 + precision)) break;
      cells_.pop();
      split(next);
    }
    if (!(best_.distance > 0)) return std::nullopt;
    if (best_.distance <= middle.distance * (1 + leastGainOverMiddle)) best_ = middle;
    return LabelAnchor{best_.middle, best_.distance};
  }

 private:
  Cell cell(graphics::Point middle, double half) {
    ++visited_;
    Cell made{middle, half, signedDistance(middle), 0};
    made.most = made.distance + half * std::sqrt(2.0);
    return made;
  }

  double signedDistance(graphics::Point point) const {
    double nearest = nearestOf(area_, point);
    bool isInside = area_.contains(point);
    for (const LabelArea* other : areasOnIt_) {
      nearest = std::min(nearest, nearestOf(*other, point));
      isInside = isInside && !other->contains(point);
    }
    return (isInside ? 1 : -1) * std::sqrt(nearest);
  }

  static double nearestOf(const LabelArea& area, graphics::Point point) {
    double nearest = std::numeric_limits<double>::max();
    for (const LabelEdge& edge : area.edges)
      nearest = std::min(nearest, squaredDistance(point, edge));
    return nearest;
  }

  graphics::Point middleOfEdges() const {
    double x = 0;
    double y = 0;
    double total = 0;
    for (const auto& [from, to] : area_.edges) {
      const double length = std::hypot(to.x - from.x, to.y - from.y);
      x += (from.x + to.x) / 2 * length;
      y += (from.y + to.y) / 2 * length;
      total += length;
    }
    return {x / total, y / total};
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
    if (made.most > 0) cells_.push(made);
  }

  void split(const Cell& whole) {
    const double half = whole.half / 2;
    for (const double x : {-half, half})
      for (const double y : {-half, half})
        add(cell({whole.middle.x + x, whole.middle.y + y}, half));
  }

  const LabelArea& area_;
  graphics::Rect bounds_;
  std::vector<const LabelArea*> areasOnIt_;
  std::size_t edges_ = 0;
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
