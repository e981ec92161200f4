#include "Source/Guidance/Network/CostMatrix.hpp"

#include <unordered_map>

#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Guidance/Network/NetworkSearch.hpp"
#include "Source/Guidance/Network/StopResolver.hpp"

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;
using Columns = std::unordered_map<Index, std::vector<std::size_t>>;

}  // namespace

std::vector<std::vector<std::int64_t>> costMatrix(const GuideData& data,
                                                  const std::vector<Stop>& from,
                                                  const std::vector<Stop>& to,
                                                  const Profile& profile, const Closures& closures,
                                                  const foundation::CancellationToken& token) {
  const StopResolver resolver(data, closures);
  std::vector<ResolvedStop> starts;
  starts.reserve(from.size());
  std::vector<ResolvedStop> goals;
  goals.reserve(to.size());
  Columns columns;  // per vertex
  for (const Stop& stop : from) starts.push_back(resolver.resolve(stop, starts.size(), true));
  for (const Stop& stop : to) {
    goals.push_back(resolver.resolve(stop, from.size() + goals.size(), false));
    if (!goals.back().problem)
      for (const Index vertex : goals.back().ends.vertices)
        columns[vertex].push_back(goals.size() - 1);
  }
  const auto costs = data.costs.table(profile, data.places.closedArcs(closures));
  const SearchContext context{data.network, data.states, token};
  std::vector<std::vector<std::int64_t>> rows(from.size());
  foundation::parallelFor(from.size(), [&](std::size_t row) {
    rows[row].assign(to.size(), -1);
    if (starts[row].problem || token.isCanceled()) return;
    NetworkSearch search(context, *costs, from.size() + to.size());
    for (const ResolvedStop& goal : goals)
      if (!goal.problem) search.aimAt(goal.ends);
    search.startFrom(starts[row].ends);
    std::size_t left = 0;
    for (const ResolvedStop& goal : goals) left += goal.problem ? 0 : 1;
    while (left != 0) {
      const auto vertex = search.next();
      if (!vertex) break;
      for (const std::size_t column : columns.at(*vertex))
        if (rows[row][column] < 0) {
          rows[row][column] = search.cost(*vertex);
          --left;
        }
    }
  });
  return rows;
}

}  // namespace orivanta::guidance
