#include "Source/Guidance/Network/BackwardSearch.hpp"

#include <algorithm>
#include <unordered_map>

#include "Source/Guidance/Network/StopResolver.hpp"

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;

// The nodes from which a way leads to any of the goals.
class BackwardSearch {
 public:
  BackwardSearch(const GuideNetwork& network, const CostTable& costs)
      : network_(network), costs_(costs), leads_(network.size(), false) {}

  void aimAt(const Ends& goal) {
    for (const Index vertex : goal.vertices)
      if (vertex < network_.size()) add(vertex);
    for (const Ends::Split& split : goal.splits) {
      if (!isUsable(split.arc)) continue;
      add(network_.arcs()[split.arc].origin);
      double& farthest = shares_.try_emplace(split.arc, split.share).first->second;
      farthest = std::max(farthest, split.share);
    }
  }

  void run(const foundation::CancellationToken& token) {
    while (!waiting_.empty() && !token.isCanceled()) {
      const Index vertex = waiting_.back();
      waiting_.pop_back();
      for (const Index arc : network_.arcsInto(vertex))
        if (isUsable(arc)) add(network_.arcs()[arc].origin);
    }
  }

  bool leads(const Ends& start) const {
    return std::any_of(start.vertices.begin(), start.vertices.end(),
                       [&](Index vertex) { return vertex < network_.size() && leads_[vertex]; }) ||
           std::any_of(start.splits.begin(), start.splits.end(),
                       [&](const Ends::Split& split) { return leads(split); });
  }

 private:
  bool isUsable(Index arc) const { return costs_[arc] != CostTable::unusable; }

  void add(Index vertex) {
    if (leads_[vertex]) return;
    leads_[vertex] = true;
    waiting_.push_back(vertex);
  }

  // To the end of the arc, or to a goal ahead on it.
  bool leads(const Ends::Split& split) const {
    if (!isUsable(split.arc)) return false;
    if (leads_[network_.arcs()[split.arc].target]) return true;
    const auto goal = shares_.find(split.arc);
    return goal != shares_.end() && goal->second >= split.share;
  }

  const GuideNetwork& network_;
  const CostTable& costs_;
  std::vector<bool> leads_;  // by node
  std::vector<Index> waiting_;
  std::unordered_map<Index, double> shares_;  // of the farthest goal on an arc
};

}  // namespace

std::vector<bool> leadToAny(const GuideData& data, const std::vector<Stop>& from,
                            const std::vector<Stop>& to, const Profile& profile,
                            const Closures& closures, const foundation::CancellationToken& token) {
  const StopResolver resolver(data, closures);
  const auto costs = data.costs.table(profile, data.places.closedArcs(closures));
  BackwardSearch search(data.network, *costs);
  for (const Stop& stop : to) {
    if (token.isCanceled()) return std::vector<bool>(from.size());
    if (const ResolvedStop goal = resolver.resolve(stop, 0, false); !goal.problem)
      search.aimAt(goal.ends);
  }
  search.run(token);
  std::vector<bool> leads;
  leads.reserve(from.size());
  for (const Stop& stop : from) {
    if (token.isCanceled()) return std::vector<bool>(from.size());
    const ResolvedStop start = resolver.resolve(stop, 0, true);
    leads.push_back(!start.problem && search.leads(start.ends));
  }
  return leads;
}

}  // namespace orivanta::guidance
