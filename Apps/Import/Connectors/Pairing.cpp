#include "Apps/Import/Connectors/Pairing.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "Apps/Import/Connectors/StepEdges.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

namespace {

using package::dot;

constexpr double leastOverlap = 0.2;  // of the smaller piece
constexpr double longestGap = 8.0;    // between flights in line
constexpr double nearGap = 12.0;      // between flights that have no other partner
constexpr double touchingGap = 1.2;   // between ends that touch
constexpr double sidewaysOffset = 1.0;
constexpr double besideWidth = 0.5;
constexpr std::size_t mostCandidates = 300;

struct Pair {
  int rank = 0;        // 0 overlap, 1 touch, 2 in line, 3 near, 4 overlap with steps at one end
  double score = 0.0;  // the lower the better
  std::size_t lower = 0;
  std::size_t upper = 0;

  friend bool operator<(const Pair& a, const Pair& b) {
    return std::tie(a.rank, a.score, a.lower, a.upper) <
           std::tie(b.rank, b.score, b.lower, b.upper);
  }
};

bool agree(Direction a, Direction b) {
  const auto free = [](Direction direction) {
    return direction == Direction::unknown || direction == Direction::both;
  };
  return free(a) || free(b) || a == b;
}

double overlapOf(const Piece& a, const Piece& b) {
  if (a.area == nullptr || b.area == nullptr) {
    const bool inside = a.area != nullptr   ? contains(a.shape, b.box.center)
                        : b.area != nullptr ? contains(b.shape, a.box.center)
                                            : package::distance(a.box.center, b.box.center) < 1.5;
    return inside ? 1.0 : 0.0;
  }
  const double smaller = std::min(areaOf(a.shape), areaOf(b.shape));
  return smaller <= 0.0 ? 0.0 : areaOf(common(a.shape, b.shape)) / smaller;
}

// Whether both flights have the same direction, one lies within the width of the other, and one
// begins where the other ends; then the gap.
std::optional<double> gapInLine(const Piece& a, const Piece& b) {
  if (a.box.length < 1.2 * a.box.width || b.box.length < 1.2 * b.box.width) return std::nullopt;
  if (std::abs(dot(a.box.along, b.box.along)) < 0.95) return std::nullopt;
  const Point way = b.box.center - a.box.center;
  const double within = std::abs(a.box.width - b.box.width) / 2.0 + besideWidth;
  if (std::abs(dot(way, a.box.across())) > std::max(sidewaysOffset, within)) return std::nullopt;
  return std::abs(dot(way, a.box.along)) - (a.box.length + b.box.length) / 2.0;
}

// Whether both show their steps at the same end, as stairs that turn back do, or flights that
// cross each other.
bool haveStepsAtOneEnd(const Piece& a, const Piece& b) {
  constexpr double near = 2.0;  // meters
  const auto first = onlySideWithSteps(a);
  const auto second = first ? onlySideWithSteps(b) : std::nullopt;
  return second && package::distance(*stepsAt(a, *first), *stepsAt(b, *second)) < near;
}

double endGap(const Piece& a, const Piece& b) {
  double nearest = 1e300;
  for (const double first : {-1.0, 1.0})
    for (const double second : {-1.0, 1.0})
      nearest = std::min(nearest, package::distance(a.box.end(first), b.box.end(second)));
  return nearest;
}

std::optional<Pair> match(const std::vector<Piece>& pieces, std::size_t lower, std::size_t upper) {
  const Piece& a = pieces[lower];
  const Piece& b = pieces[upper];
  if (a.kind != b.kind || !agree(a.direction, b.direction)) return std::nullopt;
  const double reach = (a.box.length + b.box.length) / 2.0 + longestGap + 1.0;
  if (package::distance(a.box.center, b.box.center) > reach) return std::nullopt;
  if (const double overlap = overlapOf(a, b); overlap >= leastOverlap)
    return Pair{haveStepsAtOneEnd(a, b) ? 4 : 0, -overlap, lower, upper};
  if (a.kind == ConnectorKind::elevator || a.area == nullptr || b.area == nullptr)
    return std::nullopt;
  if (const double gap = endGap(a, b); gap < touchingGap) return Pair{1, gap, lower, upper};
  const double mostBeyond = std::max(1.0, 0.25 * std::min(a.box.length, b.box.length));
  if (const auto gap = gapInLine(a, b); gap && *gap < longestGap && -*gap < mostBeyond)
    return Pair{2, *gap, lower, upper};
  return std::nullopt;
}

// Pieces with almost the same outline.
std::optional<Pair> matchSame(const std::vector<Piece>& pieces, std::size_t lower,
                              std::size_t upper) {
  const Piece& a = pieces[lower];
  const Piece& b = pieces[upper];
  constexpr double half = 0.5;
  if (a.kind != b.kind || !agree(a.direction, b.direction) ||
      package::distance(a.box.center, b.box.center) > (a.box.length + b.box.length) / 2.0)
    return std::nullopt;
  const double overlap = overlapOf(a, b);
  if (overlap < half) return std::nullopt;
  return Pair{0, -overlap, lower, upper};
}

// Flights without any other partner: the nearer, the better.
std::optional<Pair> matchNear(const std::vector<Piece>& pieces, std::size_t lower,
                              std::size_t upper) {
  const Piece& a = pieces[lower];
  const Piece& b = pieces[upper];
  if (a.kind != b.kind || a.kind == ConnectorKind::elevator || a.area == nullptr ||
      b.area == nullptr || !agree(a.direction, b.direction))
    return std::nullopt;
  const double gap = endGap(a, b);
  if (gap >= nearGap) return std::nullopt;
  return Pair{3, gap, lower, upper};
}

// Pieces of one storey by the cell of a grid in which their centers lie.
class CellIndex {
 public:
  CellIndex(const std::vector<Piece>& pieces, const std::vector<std::size_t>& chosen) {
    for (const std::size_t piece : chosen) {
      cells_[cellOf(pieces[piece].box.center)].push_back(piece);
      longest_ = std::max(longest_, pieces[piece].box.length);
    }
  }

  std::vector<std::size_t> near(const Piece& piece) const {
    const double reach = std::min((piece.box.length + longest_) / 2.0 + nearGap + 1.0, 100.0);
    const auto low = cellOf(piece.box.center - Point{reach, reach});
    const auto high = cellOf(piece.box.center + Point{reach, reach});
    std::vector<std::size_t> found;
    for (long x = low.first; x <= high.first; ++x)
      for (long y = low.second; y <= high.second; ++y)
        if (const auto cell = cells_.find({x, y}); cell != cells_.end())
          found.insert(found.end(), cell->second.begin(), cell->second.end());
    // More pieces in one place are damage, which must not take quadratic time.
    if (found.size() > mostCandidates) found.resize(mostCandidates);
    return found;
  }

 private:
  static std::pair<long, long> cellOf(Point point) {
    constexpr double size = 20.0;
    return {std::lround(point.x / size), std::lround(point.y / size)};
  }
  std::map<std::pair<long, long>, std::vector<std::size_t>> cells_;
  double longest_ = 0.0;
};

}  // namespace

Heights heightsOf(const Building& building) {
  constexpr double sameHeight = 0.5;  // meters
  Heights heights;
  double last = 0.0;
  for (const Storey& storey : building.storeys) {
    const double elevation = storey.elevation.value_or(storey.ordinal * 4.0);
    if (heights.empty() || std::abs(elevation - last) >= sameHeight) heights.emplace_back();
    heights.back().push_back(storey.ordinal);
    last = elevation;
  }
  return heights;
}

namespace {

using Matcher = std::optional<Pair> (*)(const std::vector<Piece>&, std::size_t, std::size_t);

void pairAll(const std::vector<Piece>& pieces, const Heights& heights,
             const std::vector<bool>& open, Matcher matcher,
             std::pair<std::size_t, std::size_t> distances, DisjointSets& sets,
             std::span<const PieceIndices> known = {}) {
  std::map<double, std::vector<std::size_t>> byLevel;
  for (std::size_t i = 0; i < pieces.size(); ++i)
    if (open[i]) byLevel[pieces[i].level].push_back(i);
  const auto piecesAt = [&](const std::vector<double>& levels) {
    std::vector<std::size_t> all;
    for (const double level : levels)
      all.insert(all.end(), byLevel[level].begin(), byLevel[level].end());
    return all;
  };
  std::set<std::size_t> hasUpper;
  std::set<std::size_t> hasLower;
  for (const auto& [lower, upper] : known) {
    hasUpper.insert(lower);
    hasLower.insert(upper);
  }
  // Neighboring heights first; then flights and lifts that pass a storey.
  for (std::size_t distance = distances.first; distance <= distances.second; ++distance) {
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i + distance < heights.size(); ++i) {
      const CellIndex above(pieces, piecesAt(heights[i + distance]));
      for (const std::size_t lower : piecesAt(heights[i]))
        for (const std::size_t upper : above.near(pieces[lower]))
          if (const auto pair = matcher(pieces, lower, upper)) pairs.push_back(*pair);
    }
    std::sort(pairs.begin(), pairs.end());
    for (const Pair& pair : pairs) {
      if (hasUpper.contains(pair.lower) || hasLower.contains(pair.upper)) continue;
      hasUpper.insert(pair.lower);
      hasLower.insert(pair.upper);
      sets.join(pair.lower, pair.upper);
    }
  }
}

}  // namespace

void pairByShape(const std::vector<Piece>& pieces, const Heights& heights,
                 const std::vector<bool>& open, DisjointSets& sets,
                 std::span<const PieceIndices> known) {
  pairAll(pieces, heights, open, match, {1, 2}, sets, known);
}

void pairFar(const std::vector<Piece>& pieces, const Heights& heights,
             const std::vector<bool>& open, DisjointSets& sets) {
  constexpr std::size_t most = 10;
  pairAll(pieces, heights, open, matchSame, {3, std::min(heights.size(), most)}, sets);
}

void pairNearest(const std::vector<Piece>& pieces, const Heights& heights,
                 const std::vector<bool>& open, DisjointSets& sets) {
  pairAll(pieces, heights, open, matchNear, {1, 2}, sets);
}

}  // namespace orivanta::importer
