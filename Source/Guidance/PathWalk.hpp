// A path followed through the graph once: its lengths, its costs and its rides.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// The edge that a route takes from a node to the next one: the cheapest, and the first one if
/// several cost the same. Null if there is none. Points into the graph.
ORIVANTA_API const Edge* cheapestEdge(const NavigationGraph& graph, const Node& from,
                                      const Node& to);

/// The step of a path from one node to the next.
struct Stretch {
  double length = 0.0;                ///< in the venue's units; 0 for a ride
  double weight = 0.0;                ///< in the graph's weights
  std::shared_ptr<Vortex> connector;  ///< null when walking
  bool hasEdge = false;               ///< false if the graph has no edge here; then the rest is 0
};

/// A ride on one connector, over as many stops as the path makes on it.
struct Ride {
  std::shared_ptr<Vortex> connector;  ///< never null
  std::size_t begin;                  ///< index into the path
  std::size_t end;                    ///< index into the path, greater than `begin`
};

/// Immutable; does not refer to the graph after it was made.
class ORIVANTA_API PathWalk {
 public:
  /// `path` is what a search of the graph found, or any other list of nodes. It may be empty.
  PathWalk(NodeList path, const NavigationGraph& graph);

  /// The nodes of the path.
  const NodeList& path() const { return path_; }

  /// One for each pair of neighbors in the path, in its order.
  const std::vector<Stretch>& stretches() const { return stretches_; }

  /// All rides, in the order of the path, those between nodes of one floor included.
  const std::vector<Ride>& rides() const { return rides_; }

  /// The walked length in the venue's units, added up from the start.
  double length() const { return lengthBetween(0, stretches_.size()); }

  /// The cost in the graph's weights, added up from the start.
  double weight() const;

  /// The walked length between two nodes, given by their indices in the path, `first` <= `last`.
  double lengthBetween(std::size_t first, std::size_t last) const;

 private:
  NodeList path_;
  std::vector<Stretch> stretches_;
  std::vector<Ride> rides_;
};

/// A ride as an instruction, such as "Take Lift A up to First Floor". The name of a connector that
/// tells the way itself, such as "Escalator up to F1", is not followed by it again.
ORIVANTA_API std::string rideInstruction(const Vortex& connector, const Map& from, const Map& to);

}  // namespace orivanta
