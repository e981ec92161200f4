// The memory of searches, which later searches use again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "Source/Graph/RouteFrontier.hpp"

namespace orivanta::guidance {

/// The state of a vertex in one search. Valid only if its stamp equals that of the search.
struct VertexState {
  std::int64_t cost;          ///< the lowest known cost, in milliseconds
  double bound;               ///< a lower bound of the cost to the next target
  std::uint32_t arc;          ///< the last arc of the best known path
  std::uint32_t reached = 0;  ///< the search that set the other fields
  std::uint32_t marked = 0;   ///< the search in which `isTarget` or `isSplit` is valid
  bool queued;
  bool isTarget;
  bool isSplit;  ///< whether a position lies on an arc that leads out of the vertex
};

/// The state of one search.
struct SearchState {
  std::vector<VertexState> vertices;
  RouteFrontier frontier;
  std::uint32_t stamp = 0;
};

/// Thread-safe. Keeps at most 32 states that are not in use, and none that is much larger than the
/// network.
class SearchStates {
 public:
  /// `networkSize` is the number of nodes.
  explicit SearchStates(std::size_t networkSize) : networkSize_(networkSize) {}

  /// Returns a state with at least this number of vertices, none of which is reached.
  std::unique_ptr<SearchState> take(std::size_t vertexCount);
  void giveBack(std::unique_ptr<SearchState> state);

 private:
  std::size_t networkSize_;
  std::mutex mutex_;
  std::vector<std::unique_ptr<SearchState>> states_;
};

}  // namespace orivanta::guidance
