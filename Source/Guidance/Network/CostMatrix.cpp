#include "Source/Guidance/Network/CostMatrix.hpp"

#include <unordered_map>
#include <utility>

#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Guidance/Network/NetworkSearch.hpp"
#include "Source/Guidance/Network/StopResolver.hpp"

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;
using ResolvedStops = std::vector<ResolvedStop>;

// Resolves the starts or the destinations, whose indexes begin at `firstIndex`. Returns nothing if
// they have too many nodes. If it is canceled, the other stops have a problem.
std::optional<ResolvedStops> resolvedStops(const StopResolver& resolver,
                                           const std::vector<Stop>& stops, std::size_t firstIndex,
                                           bool areStarts, std::size_t mostNodes,
                                           const foundation::CancellationToken& token) {
  ResolvedStops resolved(stops.size(), {{}, {}, {}, Problem::Kind::unreachable});
  std::size_t nodes = 0;
  for (std::size_t i = 0; i < stops.size() && !token.isCanceled(); ++i) {
    resolved[i] = resolver.resolve(stops[i], firstIndex + i, areStarts);
    nodes += resolved[i].ends.vertices.size();
    if (nodes > mostNodes) return std::nullopt;
  }
  return resolved;
}

// Computes the costs from each start.
class Matrix {
 public:
  Matrix(const SearchContext& context, const CostTable& costs, const ResolvedStops& starts,
         const ResolvedStops& goals)
      : context_(context), costs_(costs), starts_(starts), goals_(goals) {
    for (std::size_t column = 0; column < goals.size(); ++column) {
      if (goals[column].problem) continue;
      ++usable_;
      for (const Index vertex : goals[column].ends.vertices) {
        auto& columns = columns_[vertex];
        if (columns.empty()) targets_.emplace_back(&goals[column].ends, vertex);
        columns.push_back(column);
      }
    }
  }

  std::vector<std::int64_t> row(std::size_t index) const {
    std::vector<std::int64_t> row(goals_.size(), -1);
    if (starts_[index].problem || context_.token.isCanceled()) return row;
    NetworkSearch search(context_, costs_, starts_.size() + goals_.size());
    for (const auto& [goal, vertex] : targets_) search.aimAt(*goal, vertex);
    search.startFrom(starts_[index].ends);
    for (std::size_t left = usable_; left != 0;) {
      const auto vertex = search.next();
      if (!vertex || context_.token.isCanceled()) break;
      for (const std::size_t column : columns_.at(*vertex))
        if (row[column] < 0) {
          row[column] = search.cost(*vertex);
          --left;
        }
    }
    return row;
  }

 private:
  const SearchContext& context_;
  const CostTable& costs_;
  const ResolvedStops& starts_;
  const ResolvedStops& goals_;
  std::vector<std::pair<const Ends*, Index>> targets_;           // each vertex once
  std::unordered_map<Index, std::vector<std::size_t>> columns_;  // per vertex
  std::size_t usable_ = 0;                                       // goals
};

}  // namespace

foundation::Result<std::vector<std::vector<std::int64_t>>> costMatrix(
    const GuideData& data, const std::vector<Stop>& from, const std::vector<Stop>& to,
    const Profile& profile, const Closures& closures, std::size_t mostNodes,
    const foundation::CancellationToken& token) {
  const StopResolver resolver(data, closures);
  const auto starts = resolvedStops(resolver, from, 0, true, mostNodes, token);
  const auto goals = resolvedStops(resolver, to, from.size(), false, mostNodes, token);
  if (!starts || !goals)
    return foundation::failure("guide", 0, "The stops have too many nodes for a table of costs.");
  const auto costs = data.costs.table(profile, data.places.closedArcs(closures));
  const SearchContext context{data.network, data.states, token};
  const Matrix matrix(context, *costs, *starts, *goals);
  std::vector<std::vector<std::int64_t>> rows(from.size());
  foundation::parallelFor(from.size(), [&](std::size_t row) { rows[row] = matrix.row(row); });
  return rows;
}

}  // namespace orivanta::guidance
