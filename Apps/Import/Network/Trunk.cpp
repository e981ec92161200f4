#include "Apps/Import/Network/Trunk.hpp"

#include <algorithm>
#include <map>
#include <optional>

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;
using Chain = std::vector<Index>;

constexpr double sight = 0.21;  // meters between lines and borders
constexpr int pruningRounds = 3;

class Pruner {
 public:
  explicit Pruner(const Skeleton& skeleton)
      : skeleton_(skeleton), neighbors_(skeleton.neighbors()) {
    for (Index i = 0; i < neighbors_.size(); ++i)
      if (degree(i) == 0) lone_.push_back(i);
    for (int round = 0; round < pruningRounds; ++round)
      if (!removeTwigs()) break;
  }

  // Chains between points where more or fewer than two lines meet.
  std::vector<Chain> chains() const {
    std::vector<Chain> chains;
    std::vector<bool> passed(neighbors_.size());
    for (Index i = 0; i < neighbors_.size(); ++i) {
      if (degree(i) == 0 || degree(i) == 2) continue;
      for (const Index next : neighbors_[i]) appendChain(i, next, passed, chains);
    }
    for (Index i = 0; i < neighbors_.size(); ++i)  // rings without a junction
      if (degree(i) == 2 && !passed[i]) {
        passed[i] = true;
        appendChain(i, neighbors_[i].front(), passed, chains);
      }
    return chains;
  }

  // The middle of a chain that nothing joins and that is so short that one point serves for it, as
  // in a vestibule.
  std::optional<Index> middleOfShort(const Chain& chain) const {
    constexpr double shortChain = 2.5;  // meters
    if (chain.front() == chain.back() || degree(chain.front()) != 1 || degree(chain.back()) != 1 ||
        lengthOf(chain) > shortChain)
      return std::nullopt;
    return chain[chain.size() / 2];
  }

  // Points without lines, or at which all lines were short twigs.
  std::vector<Index> lonePoints() const { return lone_; }

 private:
  std::size_t degree(Index i) const { return neighbors_[i].size(); }

  // Follows points of degree 2 from `first` by way of `next`.
  Chain follow(Index first, Index next) const {
    Chain chain{first, next};
    while (degree(next) == 2 && next != first) {
      const Index before = chain[chain.size() - 2];
      next = neighbors_[next][0] == before ? neighbors_[next][1] : neighbors_[next][0];
      chain.push_back(next);
      if (chain.size() > neighbors_.size() + 1) break;
    }
    return chain;
  }

  // Adds a chain unless it was added from its other end.
  void appendChain(Index first, Index next, std::vector<bool>& passed,
                   std::vector<Chain>& chains) const {
    if (degree(next) == 2 && passed[next]) return;
    if (degree(next) != 2 && next < first) return;
    Chain chain = follow(first, next);
    for (std::size_t i = 1; i + 1 < chain.size(); ++i) passed[chain[i]] = true;
    if (degree(chain.front()) == 1) std::reverse(chain.begin(), chain.end());
    if (degree(chain.back()) == 1) trimEnd(chain);
    chains.push_back(std::move(chain));
  }

  // A line into the corner of a hall ends where the corner becomes narrow. Lines in narrow
  // corridors stay: there, the clearance does not shrink.
  void trimEnd(Chain& chain) const {
    constexpr double wide = 1.5;
    while (chain.size() > 2 && skeleton_.clearances[chain.back()] < wide && isTapering(chain))
      chain.pop_back();
  }

  // Whether the clearance shrinks over the last meters.
  bool isTapering(const Chain& chain) const {
    constexpr double examined = 2.0;
    double length = 0.0;
    std::size_t i = chain.size() - 1;
    for (; i > 0 && length < examined; --i)
      length += package::distance(skeleton_.points[chain[i]], skeleton_.points[chain[i - 1]]);
    constexpr double slope = 0.3;
    return skeleton_.clearances[chain[i]] - skeleton_.clearances[chain.back()] > slope * length;
  }

  double lengthOf(const Chain& chain) const {
    double length = 0.0;
    for (std::size_t i = 1; i < chain.size(); ++i)
      length += package::distance(skeleton_.points[chain[i - 1]], skeleton_.points[chain[i]]);
    return length;
  }

  void disconnect(Index a, Index b) {
    std::erase(neighbors_[a], b);
    std::erase(neighbors_[b], a);
  }

  bool removeTwigs() {
    std::vector<Chain> twigs;
    for (Index i = 0; i < neighbors_.size(); ++i) {
      if (degree(i) != 1) continue;
      Chain chain = follow(i, neighbors_[i].front());
      const Index junction = chain.back();
      if (degree(junction) < 3) continue;
      if (lengthOf(chain) < 1.2 * skeleton_.clearances[junction] + 0.5)
        twigs.push_back(std::move(chain));
    }
    for (const Chain& twig : twigs) {
      for (std::size_t i = 1; i < twig.size(); ++i) disconnect(twig[i - 1], twig[i]);
      if (degree(twig.back()) == 0) lone_.push_back(twig.back());
    }
    return !twigs.empty();
  }

  const Skeleton& skeleton_;
  std::vector<std::vector<Index>> neighbors_;
  std::vector<Index> lone_;
};

// Adds chains with as few bends as possible.
class Straightener {
 public:
  Straightener(const Skeleton& skeleton, const Space& space, Draft& draft)
      : skeleton_(skeleton), space_(space), draft_(draft) {}

  void add(const Chain& chain) {
    std::vector<std::size_t> bends{0};
    std::vector<std::pair<std::size_t, std::size_t>> open{{0, chain.size() - 1}};
    while (!open.empty()) {  // ranges to be straightened, the first one last
      const auto [first, last] = open.back();
      open.pop_back();
      const std::size_t bend = bendBetween(chain, first, last);
      if (bend == first) {
        bends.push_back(last);
      } else {
        open.emplace_back(bend, last);
        open.emplace_back(first, bend);
      }
    }
    for (std::size_t i = 1; i < bends.size(); ++i)
      draft_.addEdge(nodeOf(chain[bends[i - 1]]), nodeOf(chain[bends[i]]), false);
  }

  std::uint32_t nodeOf(Index point) {
    const auto [node, isNew] = nodes_.emplace(point, 0);
    if (isNew) node->second = draft_.addWay(skeleton_.points[point]);
    return node->second;
  }

 private:
  // The point at which the line from the first to the last has to bend; `first` if it need not.
  std::size_t bendBetween(const Chain& chain, std::size_t first, std::size_t last) const {
    if (last == first + 1) return first;
    const Point from = skeleton_.points[chain[first]];
    const Point to = skeleton_.points[chain[last]];
    double worst = 0.0;
    double farthest = -1.0;
    std::size_t worstPoint = first;
    std::size_t farthestPoint = (first + last) / 2;
    for (std::size_t i = first + 1; i < last; ++i) {
      const double off = package::distanceToSegment(from, to, skeleton_.points[chain[i]]);
      const double over = off - (0.2 + skeleton_.clearances[chain[i]] / 2.0);
      if (over > worst) {
        worst = over;
        worstPoint = i;
      }
      if (off > farthest) {
        farthest = off;
        farthestPoint = i;
      }
    }
    if (worst > 0.0) return worstPoint;
    if (chain[first] != chain[last] && space_.isFree(from, to, sight)) return first;
    return farthest < 0.05 ? (first + last) / 2 : farthestPoint;
  }

  const Skeleton& skeleton_;
  const Space& space_;
  Draft& draft_;
  std::map<Index, std::uint32_t> nodes_;
};

}  // namespace

void addTrunk(const Skeleton& skeleton, const Space& space, Draft& draft) {
  const Pruner pruned(skeleton);
  Straightener straightener(skeleton, space, draft);
  for (const Chain& chain : pruned.chains()) {
    if (const auto middle = pruned.middleOfShort(chain))
      straightener.nodeOf(*middle);
    else
      straightener.add(chain);
  }
  for (const Index point : pruned.lonePoints()) straightener.nodeOf(point);
}

}  // namespace orivanta::importer
