// The lengths, costs and rides of a path through the graph.
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

/// Returns the edge that a route uses from a node to the next: the cheapest one, or the first of
/// several with the same cost. Returns null if there is none. The pointer refers to the graph.
ORIVANTA_API const Edge* cheapestEdge(const NavigationGraph& graph, const Node& from,
                                      const Node& to);

/// The step of a path from one node to the next.
struct Stretch {
  double length = 0.0;                ///< in the venue's units; 0 for a ride
  double weight = 0.0;                ///< in the graph's weights
  std::shared_ptr<Vortex> connector;  ///< null when walking
  bool hasEdge = false;  ///< false if there is no edge; the other fields are then 0 or null
};

/// A ride on one connector, including all of its intermediate stops.
struct Ride {
  std::shared_ptr<Vortex> connector;  ///< never null
  std::size_t begin;                  ///< index into the path
  std::size_t end;                    ///< index into the path, greater than `begin`
};

/// Immutable; does not refer to the graph after construction.
class ORIVANTA_API PathWalk {
 public:
  /// `path` may be the result of a search of the graph or any other list of nodes, and may be
  /// empty.
  PathWalk(NodeList path, const NavigationGraph& graph);

  /// Returns the nodes of the path.
  const NodeList& path() const { return path_; }

  /// Returns one step for each pair of consecutive nodes, in path order.
  const std::vector<Stretch>& stretches() const { return stretches_; }

  /// Returns all rides in path order, including those between nodes of one floor.
  const std::vector<Ride>& rides() const { return rides_; }

  /// Returns the walked length in the venue's units, summed from the start.
  double length() const { return lengthBetween(0, stretches_.size()); }

  /// Returns the cost in the graph's weights, summed from the start.
  double weight() const;

  /// Returns the walked length between the nodes with these indices in the path. `first` must be at
  /// most `last`.
  double lengthBetween(std::size_t first, std::size_t last) const;

 private:
  NodeList path_;
  std::vector<Stretch> stretches_;
  std::vector<Ride> rides_;
};

/// Returns a ride as an instruction, such as "Take Lift A up to First Floor". If the name of the
/// connector already states the direction, as in "Escalator up to F1", nothing is added to it.
ORIVANTA_API std::string rideInstruction(const Vortex& connector, const Map& from, const Map& to);

}  // namespace orivanta
