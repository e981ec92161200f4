// A building as an importer sees it: what a source says about it, and what the stages of the import
// derive from that. Each stage completes or derives one thing.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Import/SourceRecords.hpp"

namespace orivanta::importer {

enum class NodeKind {
  way,      ///< a point of the walking network
  door,     ///< a door; an entrance of the polygons of the areas that it joins
  inside,   ///< within a room
  spot,     ///< at a place without an area
  boarding  ///< where a connector is entered or left
};

struct Node {
  std::string id;
  NodeKind kind = NodeKind::way;
  double level = 0.0;
  Point position;
  std::string of;  ///< the door, the area, the place or the connector that it belongs to
  /// Multiplies the cost of the edges at the node. Rooms have 8, so that routes do not cross them.
  double weight = 0.0;
};

struct Edge {
  std::size_t from = 0;  ///< indices into `Network::nodes`
  std::size_t to = 0;
  bool oneWay = false;  ///< only from `from` to `to`
};

/// The walking network. Edges never cross a wall; they join nodes of one storey or one height.
struct Network {
  std::vector<Node> nodes;
  std::vector<Edge> edges;
};

/// Where a connector is entered or left.
struct Stop {
  Spot spot;
  std::string area;   ///< the connector's area on this storey; may be empty
  bool enter = true;  ///< it can be entered here
  bool leave = true;  ///< it can be left here
};

/// A connector with its stops from bottom to top. Stops on the same storey are in the order of
/// travel.
struct Connector {
  std::string id;
  std::string source;
  ConnectorKind kind = ConnectorKind::stairs;
  Names names;
  Access access = Access::everybody;
  bool accessible = false;
  bool directionKnown = true;
  std::vector<Stop> stops;
};

/// Where the building stands.
struct Georeference {
  double latitude = 0.0;  ///< of the origin, degrees
  double longitude = 0.0;
};

struct Building {
  std::string id;
  Names names;
  std::string language;     ///< of `Names::name`, a tag in lower case; may be empty
  std::string attribution;  ///< to be shown wherever the map is shown
  std::string license;
  std::optional<Georeference> georeference;
  double metersPerUnit = 1.0;  ///< of the source; `scaleKnown` tells whether it is stated
  bool scaleKnown = true;

  std::vector<Storey> storeys;
  std::vector<Area> areas;
  std::vector<Door> doors;
  std::vector<Line> lines;
  std::vector<Place> places;
  std::vector<ConnectorHint> connectorHints;
  std::vector<SourceNode> sourceNodes;
  std::vector<SourceLink> sourceLinks;

  /// The results of `walkableSpace` by ordinal. A stage that changes what they depend on removes
  /// them.
  std::map<double, std::vector<Polygon>> walkableSpaces;
  std::vector<Connector> connectors;
  Network network;
};

}  // namespace orivanta::importer
