// The network that guidance searches: numbered nodes, arcs between them, connectors and rooms.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "Source/Guidance/Profile.hpp"
#include "Source/NodeList.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {
class Venue;
}

namespace orivanta::guidance {

/// Contains all nodes of the venue; neighbors have similar numbers. Left out are nodes with a
/// coordinate that is not a number between -1e9 and 1e9. Immutable; any thread. Owns its records,
/// but does not read them after its construction.
///
/// Walking arcs are the edges of the venue's graph without a connector. Each connector has arcs
/// from each of its nodes to all others. Loops are left out.
class GuideNetwork {
 public:
  using Index = std::uint32_t;
  static constexpr Index none = std::numeric_limits<Index>::max();

  /// A node. `x` and `y` are in the venue's units.
  struct Vertex {
    double x, y;
    Index firstArc, endArc;
    Index floor;  ///< the number of its map
    Index room;   ///< the number of the room that it lies in, or none
  };
  /// A way from one node to another.
  struct Arc {
    Index origin, target;
    Index connector;  ///< none for a walking arc
    double plan;      ///< the horizontal distance in the venue's units
    double meters;    ///< of a walking arc: the length
    double weighted;  ///< of a walking arc: the length with the weights of the target, in meters
    double rise;      ///< of a ride: the difference in height in meters, positive up
  };
  struct Connector {
    std::shared_ptr<Vortex> record;
    ConnectorKind kind;
    bool accessible;
    std::string sign;  ///< see `ConnectorSigns`
    std::vector<Index> arcs;
  };
  struct Floor {
    std::shared_ptr<Map> map;  ///< null for the nodes without a map
    bool outdoor;
    double elevation;  ///< in the venue's units; 0 if the record's is not usable
  };

  explicit GuideNetwork(const Venue& venue);

  /// Returns whether a coordinate is between -1e9 and 1e9. Greater ones are errors; their squares
  /// could overflow.
  static bool isUsable(double coordinate) { return std::abs(coordinate) <= 1e9; }

  Index size() const { return static_cast<Index>(nodes_.size()); }
  std::optional<Index> find(const Node* node) const;
  const std::shared_ptr<Node>& node(Index index) const { return nodes_[index]; }
  const Vertex& vertex(Index index) const { return vertices_[index]; }
  std::span<const Vertex> vertices() const { return vertices_; }
  std::span<const Arc> arcs() const { return arcs_; }
  /// The targets of the arcs again, close to each other.
  std::span<const Index> targets() const { return targets_; }
  std::span<const Floor> floors() const { return floors_; }
  std::span<const Connector> connectors() const { return connectors_; }

  /// Returns the arcs that enter a node.
  std::span<const Index> arcsInto(Index vertex) const {
    return std::span(arcsInto_).subspan(firstInto_[vertex],
                                        firstInto_[vertex + 1] - firstInto_[vertex]);
  }

  /// Returns whether following the arc leaves a room.
  bool leavesRoom(const Arc& arc) const {
    const Index room = vertices_[arc.origin].room;
    return room != none && vertices_[arc.target].room != room;
  }

  /// Returns whether the venue has a usable `unitsPerMetre`. If not, a unit counts as a meter.
  bool hasScale() const { return hasScale_; }
  double unitsPerMeter() const { return unitsPerMeter_; }

  /// Returns the height of a node above its map, in the venue's units.
  double z(Index vertex) const { return z_[vertex]; }

  /// Returns the height of a node in meters, including its map's elevation.
  double height(Index vertex) const;

  /// Returns the map of a node; may be null.
  const std::shared_ptr<Map>& map(Index vertex) const {
    return floors_[vertices_[vertex].floor].map;
  }

 private:
  void addNodes(const Venue& venue);
  void addFloors(const Venue& venue);
  Index floorOf(const std::shared_ptr<Map>& map);
  void addWalkingArcs(const Venue& venue);
  void addConnectors(const Venue& venue);
  void addRide(Index origin, Index target);
  void sortArcs();

  bool hasScale_;
  double unitsPerMeter_;
  NodeList nodes_;
  std::unordered_map<const Node*, Index> numbers_;
  std::unordered_map<const Map*, Index> floorNumbers_;
  std::vector<Vertex> vertices_;
  std::vector<double> z_;
  std::vector<Arc> arcs_;
  std::vector<Index> targets_;
  std::vector<Index> firstInto_;
  std::vector<Index> arcsInto_;
  std::vector<Floor> floors_;
  std::vector<Connector> connectors_;
};

}  // namespace orivanta::guidance
