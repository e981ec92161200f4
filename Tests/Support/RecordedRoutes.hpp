// The routes recorded beside a real building: what was asked, and the exact answer.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/RouteSearch.hpp"

namespace orivanta::test {

struct RecordedRoute {
  bool accessible;
  std::vector<std::string> starts;
  std::vector<std::string> destinations;
  std::optional<std::string> fromLocation;  ///< whose nodes the starts are
  std::optional<std::string> toLocation;
  std::vector<std::string> path;  ///< empty when there is no route
  double cost;                    ///< of the search at the goal; 0 without a route
  double weight;                  ///< of the path, each step by its cheapest edge
  std::size_t takenNodes;
};

/// The routes recorded in a package; empty when it has none.
std::vector<RecordedRoute> recordedRoutes(const std::filesystem::path& package);

/// Searches the recorded route and expects its path, cost, weight and number of taken nodes.
void expectRecordedRoute(const RecordedRoute& recorded, const Collection<Node>& nodes,
                         const NavigationGraph& graph);

}  // namespace orivanta::test
