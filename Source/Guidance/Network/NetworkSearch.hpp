// The search for cheapest paths: A* towards few targets, Dijkstra's algorithm towards many. Both
// find targets in the order of their costs, and both are exact.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Network/CostTable.hpp"
#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"
#include "Source/Guidance/Network/SearchStates.hpp"

namespace orivanta::guidance {

/// What all searches of a guide share.
struct SearchContext {
  const GuideNetwork& network;
  SearchStates& states;
  foundation::CancellationToken token = {};
};

/// One search. Call `aimAt` for each target, then `startFrom` for each start, then `next`. All
/// arguments must outlive it.
class NetworkSearch {
 public:
  using Index = GuideNetwork::Index;

  /// Several stops are targets unless `guided`; then A* with a bound for each vertex is used.
  NetworkSearch(const SearchContext& context, const CostTable& costs, std::size_t stopCount);
  ~NetworkSearch();
  NetworkSearch(const NetworkSearch&) = delete;
  NetworkSearch& operator=(const NetworkSearch&) = delete;

  /// Adds all vertices of a stop as targets.
  void aimAt(const Ends& stop);

  /// Adds one vertex of a stop as target.
  void aimAt(const Ends& stop, Index vertex);

  /// Bounds the search towards the targets if these are few. Without it, and with many targets,
  /// the search spreads evenly.
  void guide();

  /// Adds a vertex of a stop as start. The stop's rooms can be left without penalty.
  void startFrom(const Ends& stop, Index vertex, std::int64_t cost = 0);

  /// Adds all vertices of a stop as starts.
  void startFrom(const Ends& stop);

  /// Returns the next target, by cost. Returns nothing if no further one can be reached, or if the
  /// search is canceled.
  std::optional<Index> next();

  /// Returns the cost of a target that was returned.
  std::int64_t cost(Index vertex) const { return state_->vertices[vertex].cost; }

  /// Returns the path to a target that was returned. Its cost does not include the start's.
  NetworkPath pathTo(Index vertex) const;

  /// Returns the start of that path.
  Index startOf(Index vertex) const;

  /// Returns the last hop of the path to a target that was returned or to a node on the path to
  /// one; nothing for a start.
  std::optional<Hop> hopInto(Index vertex) const;

 private:
  // A part of an arc at a position. It has a number after the network's arcs.
  struct Part {
    Hop hop;
    std::uint32_t cost;
  };
  struct Goal {
    double x, y;
    Index floor;
  };

  VertexState& mark(Index vertex);
  Goal goalAt(const Ends& stop, Index vertex) const;
  double bound(Index vertex) const;
  void addPart(Index from, Index to, const Ends::Split& split, double length);
  void leavePosition(const Ends& stop, std::int64_t cost);
  void reach(Index vertex, std::int64_t cost, Index arc) {
    const VertexState& state = state_->vertices[vertex];
    if (state.reached != state_->stamp || cost < state.cost) improve(vertex, cost, arc);
  }
  void improve(Index vertex, std::int64_t cost, Index arc);
  void expand(Index vertex);
  void expandParts(Index vertex, std::int64_t cost);
  Hop hopOf(Index arc) const;

  const SearchContext& context_;
  const GuideNetwork& network_;
  const CostTable& costs_;
  double rate_;  // of the bound, per unit of horizontal distance
  std::unique_ptr<SearchState> state_;
  std::vector<const Ends*> positions_;  // the positions among the targets
  std::vector<Goal> goals_;
  std::vector<Index> exemptRooms_;  // sorted
  std::vector<Part> parts_;
  std::unordered_map<Index, std::vector<Index>> partsFrom_;  // by origin, if it is a node
  bool guided_ = false;
  std::size_t taken_ = 0;
};

}  // namespace orivanta::guidance
