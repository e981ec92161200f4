#include "Apps/Import/Network/Smooth.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/Turns.hpp"

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

constexpr double walkedOff = 1.0;       // meters between walls and moved nodes, where there is room
constexpr double farthestMove = 4.0;    // meters, in one step
constexpr double mostChange = 0.02;     // the share by which ways through a moved node may change
constexpr double leastSmoothed = 0.05;  // the share of the bends that a move must save
constexpr double unnoticed = 0.2;       // radians; guides announce no such turn
constexpr double turnsBack = 1.75;      // radians; what exceeds it counts more
constexpr std::size_t mostBends = 96;   // that depend on a node
constexpr int smoothingRounds = 6;

// A turn of ways at a node or at one of its neighbors.
struct Bend {
  Index before;
  Index middle;
  Index after;
  double uses;
  bool withStub;
};

class Smoother {
 public:
  Smoother(const Space& space, Draft& draft)
      : space_(space),
        draft_(draft),
        all_(draft.nodes.size()),
        turns_(countTurns(draft)),
        isChanged_(draft.nodes.size(), 1) {
    for (const DraftEdge& edge : draft.edges) {
      all_[edge.from].push_back(edge.to);
      all_[edge.to].push_back(edge.from);
      if (edge.stub) stubs_.insert(std::minmax(edge.from, edge.to));
    }
  }

  void run() {
    for (int round = 0; round < smoothingRounds; ++round)
      for (Index node = 0; node < draft_.nodes.size(); ++node)
        if (draft_.nodes[node].isMovable() && std::exchange(isChanged_[node], 0) != 0) smooth(node);
  }

 private:
  Point at(Index node) const { return draft_.nodes[node].position; }

  bool isStub(Index a, Index b) const { return stubs_.contains(std::minmax(a, b)); }

  void add(Index middle, const Turn& turn) {
    bends_.push_back({turn.from, middle, turn.to, turn.uses,
                      isStub(turn.from, middle) || isStub(middle, turn.to)});
  }

  // The turns that depend on the node, first those at it. Returns how many these are.
  std::size_t findBends(Index node) {
    bends_.clear();
    for (const Turn& turn : turns_[node]) add(node, turn);
    const std::size_t count = bends_.size();
    for (const Index other : all_[node]) {
      if (bends_.size() > mostBends || turns_[other].size() > mostBends) return 0;
      for (const Turn& turn : turns_[other])
        if (turn.from == node || turn.to == node) add(other, turn);
    }
    return bends_.size() > mostBends ? 0 : count;
  }

  // Two small bends are worse than one that is as large as both. Ways begin and end with stubs at
  // right angles.
  double costOf(const Bend& bend) const {
    const Point in = at(bend.middle) - at(bend.before);
    const Point out = at(bend.after) - at(bend.middle);
    const double angle = std::abs(std::atan2(package::cross(in, out), package::dot(in, out)));
    double cost = 3.0 * std::max(angle - turnsBack, 0.0);
    if (!bend.withStub) {
      const double root = std::sqrt(std::max(angle - unnoticed, 0.0));
      cost += root * std::sqrt(root) + 0.15 * angle;
    }
    return bend.uses * cost;
  }

  double cost() const {
    double sum = 0.0;
    for (const Bend& bend : bends_) sum += costOf(bend);
    return sum;
  }

  bool isCheaper(double limit) const {
    double sum = 0.0;
    return std::all_of(bends_.begin(), bends_.end(),
                       [&](const Bend& bend) { return (sum += costOf(bend)) < limit; });
  }

  double lengthThrough(Index node, std::size_t count) const {
    double sum = 0.0;
    for (std::size_t i = 0; i < count; ++i)
      sum += bends_[i].uses * (package::distance(at(node), at(bends_[i].before)) +
                               package::distance(at(node), at(bends_[i].after)));
    return sum;
  }

  void smooth(Index node) {
    const std::size_t count = findBends(node);
    if (count == 0) return;
    const Point old = at(node);
    const double clearance = space_.clearance(old, walkedOff);
    const double length = lengthThrough(node, count);
    const auto keepsLength = [&](double moved) {
      return std::abs(moved - length) <= mostChange * length;
    };
    double least = (1.0 - leastSmoothed) * cost();
    if (least == 0.0) return;
    Point best = old;
    bool isBetter = false;
    const auto tryToward = [&](Point foot) {
      if (package::distance(old, foot) > farthestMove) return;
      for (const double share : {1.0, 0.5, 0.25}) {
        const Point position = old + (foot - old) * share;
        draft_.nodes[node].position = position;
        if (keepsLength(lengthThrough(node, count)) && isCheaper(least) &&
            space_.clearance(position, walkedOff) >= clearance && seesAll(node)) {
          least = cost();
          best = position;
          isBetter = true;
        }
        draft_.nodes[node].position = old;
      }
    };
    for (std::size_t i = 0; i < bends_.size(); ++i) tryToward(straightThrough(bends_[i], node));
    if (!isBetter) return;
    draft_.nodes[node].position = best;
    isChanged_[node] = 1;
    for (const Index other : all_[node]) isChanged_[other] = 1;
  }

  // The nearest position of the node at which the ways do not bend.
  Point straightThrough(const Bend& bend, Index node) const {
    const Point old = at(node);
    if (bend.middle == node) {
      const Point from = at(bend.before);
      const Point to = at(bend.after);
      return from + (to - from) * package::nearestFraction(from, to, old);
    }
    const Point before = at(bend.before == node ? bend.after : bend.before);
    const Point way = at(bend.middle) - before;
    const double square = package::dot(way, way);
    if (square == 0.0) return old;
    const double share = package::dot(old - before, way) / square;
    return share > 1.0 ? before + way * share : old;
  }

  bool seesAll(Index node) const {
    return space_.contains(at(node)) &&
           std::all_of(all_[node].begin(), all_[node].end(), [&](Index other) {
             return sees(space_, draft_.nodes[node], draft_.nodes[other]);
           });
  }

  const Space& space_;
  Draft& draft_;
  std::vector<std::vector<Index>> all_;  // of each node: those at the other ends of its lines
  std::set<std::pair<Index, Index>> stubs_;
  std::vector<std::vector<Turn>> turns_;
  std::vector<std::uint8_t> isChanged_;  // of each node: it or one of those has moved meanwhile
  std::vector<Bend> bends_;
};

}  // namespace

void smoothBends(const Space& space, Draft& draft) { Smoother(space, draft).run(); }

}  // namespace orivanta::importer
