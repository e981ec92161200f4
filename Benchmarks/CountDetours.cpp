#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <map>
#include <queue>
#include <utility>
#include <vector>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Network/Sight.hpp"
#include "Benchmarks/NetworkFigures.hpp"

namespace orivanta::benchmarks {

using importer::Building;
using importer::DraftNode;
using importer::NodeKind;

namespace {

constexpr double longestWay = 60.0;  // meters

struct Detour {
  double length;
  double tight;
  std::string name;
};

// The ways of one storey between its doors, its stops and the places in its open space.
class StoreyWays {
 public:
  StoreyWays(const Building& building, double level)
      : network_(building.network),
        space_(importer::walkableSpace(building, level)),
        neighbors_(network_.nodes.size()),
        nodes_(network_.nodes.size()) {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
      if (network_.nodes[i].level != level) continue;
      nodes_[i].position = network_.nodes[i].position;
      constexpr double besideSpace = 1.0;
      if (placeBeside(space_, nodes_[i], besideSpace) && network_.nodes[i].kind != NodeKind::way)
        ends_.push_back(i);
    }
    for (const importer::Edge& edge : network_.edges) {
      if (network_.nodes[edge.from].level != level || network_.nodes[edge.to].level != level)
        continue;
      neighbors_[edge.from].push_back(edge.to);
      if (!edge.oneWay) neighbors_[edge.to].push_back(edge.from);
    }
  }

  void append(std::vector<Detour>& detours) {
    const std::size_t step = std::max<std::size_t>(1, ends_.size() / 60);
    for (std::size_t i = 0; i < ends_.size(); i += step) {
      search(ends_[i]);
      for (std::size_t k = i % step; k < ends_.size(); k += step) {
        constexpr double shortest = 2.0;
        const double length = lengths_[ends_[k]];
        if (length == unknownLength ||
            package::distance(nodes_[ends_[i]].position, nodes_[ends_[k]].position) < shortest)
          continue;
        detours.push_back({length, tightLength(ends_[k]),
                           network_.nodes[ends_[i]].id + " to " + network_.nodes[ends_[k]].id});
      }
    }
  }

 private:
  // As routes are found: rooms are not crossed.
  void search(std::size_t start) {
    lengths_.assign(nodes_.size(), unknownLength);
    before_.assign(nodes_.size(), start);
    using Entry = std::pair<double, std::size_t>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
    open.emplace(lengths_[start] = 0.0, start);
    while (!open.empty()) {
      const auto [length, node] = open.top();
      open.pop();
      if (length > lengths_[node] || (node != start && network_.nodes[node].weight > 0.0)) continue;
      for (const std::size_t next : neighbors_[node]) {
        const double sum = length + package::distance(nodes_[node].position, nodes_[next].position);
        if (sum >= lengths_[next] || sum > longestWay) continue;
        before_[next] = node;
        open.emplace(lengths_[next] = sum, next);
      }
    }
  }

  // The length of the way to a node if it leaves out every bend that it need not make.
  double tightLength(std::size_t end) const {
    std::vector<std::size_t> way{end};
    while (lengths_[way.back()] > 0.0) way.push_back(before_[way.back()]);
    std::vector<double> tight(way.size(), unknownLength);
    tight[0] = 0.0;
    for (std::size_t i = 1; i < way.size(); ++i)
      for (std::size_t k = 0; k < i; ++k) {
        const DraftNode& from = nodes_[way[k]];
        const DraftNode& to = nodes_[way[i]];
        const double sum = tight[k] + package::distance(from.position, to.position);
        if (sum < tight[i] && (k + 1 == i || sees(space_, from, to))) tight[i] = sum;
      }
    return tight.back();
  }

  const importer::Network& network_;
  importer::Space space_;
  std::vector<std::vector<std::size_t>> neighbors_;
  std::vector<DraftNode> nodes_;
  std::vector<std::size_t> ends_;
  std::vector<double> lengths_;
  std::vector<std::size_t> before_;
};

}  // namespace

void countDetours(const Building& building, bool list) {
  std::vector<Detour> detours;
  for (const importer::Storey& storey : building.storeys)
    StoreyWays(building, storey.ordinal).append(detours);
  std::vector<double> ratios;
  std::size_t bent = 0;
  ratios.reserve(detours.size());
  for (const auto& [length, tight, name] : detours) {
    ratios.push_back(length / tight);
    if (length < std::max(1.2 * tight, tight + 1.0)) continue;
    if (++bent <= 10 && list)
      fmt::print("  bent             {}: {:.1f}, {:.1f}\n", name, length, tight);
  }
  fmt::print("to tight ways      median {:.3f}, p95 {:.3f}, max {:.2f}; bent {}\n",
             quantile(ratios, 0.5), quantile(ratios, 0.95), quantile(ratios, 1.0),
             share(bent, detours.size()));
}

}  // namespace orivanta::benchmarks
