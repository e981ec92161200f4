// What a source says about a building: storeys, areas, doors, lines, places and connectors.
// Readers fill it in, in meters and without any geometric computation. Identifiers are those of the
// source, so that findings can name them and a second import changes only what has changed.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Package/Geometry.hpp"

namespace orivanta::importer {

using package::Outline;
using package::Point;

/// A flat area with holes. Readers keep the direction and the repeated last point of the source's
/// rings; `repairShapes` makes outer rings counterclockwise, holes clockwise, and removes repeated
/// points.
struct Polygon {
  Outline outer;
  std::vector<Outline> holes;
};

/// A name in several languages. Keys are language tags in lower case.
struct Names {
  std::string name;  ///< in the building's own language; empty if there is none
  std::map<std::string, std::string> byLanguage;
  bool generated = false;  ///< the importer invented the name; no sign shows it
};

/// What is known about wheelchairs.
enum class Wheelchair { unknown, yes, no };

/// In which direction a connector or a line is used, relative to its points or from bottom to top.
enum class Direction { unknown, both, forward, backward };

/// Who may enter, from the most people to the fewest. Routes lead through what is for staff only if
/// there is no other way, and never through what is for nobody.
enum class Access { everybody, staff, nobody };

/// A level of the building. Several source records with equal ordinals are merged by
/// `arrangeStoreys`.
struct Storey {
  std::string id;                   ///< of the source; of the package after `arrangeStoreys`
  double ordinal = 0.0;             ///< 0 is the ground floor; may be a fraction for a landing
  Names names;                      ///< empty if the source does not name it
  std::string shortName;            ///< as on signs, such as "EG"; may be empty
  std::optional<double> elevation;  ///< meters above the ground floor
  bool outdoor = false;
  std::string building;            ///< the source's building, for sites with several; may be empty
  std::vector<Polygon> footprint;  ///< may be empty
};

enum class AreaKind {
  room,     ///< entered through doors
  walkway,  ///< corridors, halls, platforms, open areas: people walk here
  ramp,
  stairs,
  escalator,
  movingWalkway,
  elevator,
  opening,  ///< open to the storey below
  wall,
  obstacle,  ///< furniture, columns, plants: nobody walks here
  unknown    ///< may be a walkway, if its storey has none otherwise
};

/// Whether areas of this kind lead to other storeys or along one.
inline bool isConnector(AreaKind kind) {
  return kind == AreaKind::stairs || kind == AreaKind::escalator || kind == AreaKind::elevator ||
         kind == AreaKind::movingWalkway || kind == AreaKind::ramp;
}

/// A drawn area on one storey. An area that the source repeats on several levels is one area per
/// level, with the identifiers "way/7@0", "way/7@1".
struct Area {
  std::string id;
  std::string source;  ///< the identifier in the source, for findings
  AreaKind kind = AreaKind::unknown;
  double level = 0.0;  ///< ordinal of the storey
  std::vector<Polygon> shape;
  std::string place;      ///< identifier of the place that it belongs to; may be empty
  std::string connector;  ///< areas with the same text belong to one connector; may be empty
  Names names;            ///< of a connector's area; the names of others are those of their places
  std::string category;   ///< the source's value, such as "shop=clothes", "unit:restroom", "B005"
  Access access = Access::everybody;
  Wheelchair wheelchair = Wheelchair::unknown;
  Direction direction = Direction::unknown;  ///< for connectors: forward is upward
  /// The drawn edges of steps. A flight shows them at the ends that are on its own storey.
  std::vector<std::array<Point, 2>> stepEdges;
};

enum class DoorKind {
  door,
  entrance,   ///< leads outdoors
  emergency,  ///< an exit that is not for everyday use
  gate,       ///< a ticket gate or a turnstile
  passage     ///< an opening without a door
};

struct Door {
  std::string id;
  std::string source;
  DoorKind kind = DoorKind::door;
  double level = 0.0;
  Point position;               ///< the middle of the opening
  std::vector<Point> line;      ///< the opening as drawn; empty if the source has only a point
  std::optional<double> width;  ///< meters
  Names names;
  Access access = Access::everybody;
  Wheelchair wheelchair = Wheelchair::unknown;
  bool guessed = false;  ///< the importer made it
  /// The areas that it joins. Readers fill it in if the source says so; `joinDoors` completes it.
  std::vector<std::string> areas;
};

enum class LineKind { wall, path, ramp, steps, escalator, movingWalkway, barrier };

/// A drawn line: a wall, a footway, a flight of steps.
struct Line {
  std::string id;
  std::string source;
  LineKind kind = LineKind::path;
  std::vector<double> levels;  ///< ascending; of a flight, the storeys that it joins
  std::vector<Point> points;
  std::vector<double> pointLevels;    ///< the ordinal at each point if the source has it; or empty
  std::vector<std::string> pointIds;  ///< the source's identifier of each point; or empty
  std::optional<double> width;        ///< meters
  Names names;
  Access access = Access::everybody;
  Wheelchair wheelchair = Wheelchair::unknown;
  Direction direction = Direction::unknown;  ///< forward is the direction of the points
};

/// A position on a storey.
struct Spot {
  double level = 0.0;
  Point position;
};

/// A destination. It has areas, spots or both; one without either is left out with a finding.
struct Place {
  std::string id;
  std::string source;
  Names names;
  std::string category;  ///< the source's value; see `Area::category`
  std::vector<std::string> areas;
  std::vector<Spot> spots;
  std::string hours;  ///< in the grammar of OpenStreetMap; may be empty
  std::map<std::string, std::string> description;  ///< by language; the key "" is the source's own
  std::string phone;
  std::string website;
  Access access = Access::everybody;
  Wheelchair wheelchair = Wheelchair::unknown;
};

enum class ConnectorKind { elevator, escalator, stairs, ramp, movingWalkway };

/// The kind of the connector that an area of this kind belongs to; stairs for areas of no
/// connector.
inline ConnectorKind connectorKindOf(AreaKind kind) {
  return kind == AreaKind::elevator        ? ConnectorKind::elevator
         : kind == AreaKind::escalator     ? ConnectorKind::escalator
         : kind == AreaKind::ramp          ? ConnectorKind::ramp
         : kind == AreaKind::movingWalkway ? ConnectorKind::movingWalkway
                                           : ConnectorKind::stairs;
}

/// A connector that the source states by itself: an elevator node with a list of levels, a
/// relationship. Areas and lines of connectors need no hint.
struct ConnectorHint {
  std::string id;
  std::string source;
  ConnectorKind kind = ConnectorKind::elevator;
  Names names;
  std::vector<Spot> spots;         ///< where it is entered, from bottom to top
  std::vector<std::string> areas;  ///< its areas, if the source says so
  std::vector<std::string> doors;  ///< its doors, if the source says so
  Wheelchair wheelchair = Wheelchair::unknown;
  Direction direction = Direction::unknown;  ///< forward is upward
};

enum class LinkKind { walk, movingWalkway, elevator, escalator, stairs, ramp };

/// A point of the source's own walking network.
struct SourceNode {
  std::string id;
  Spot spot;
};

/// An edge of the source's own walking network.
struct SourceLink {
  std::string id;
  std::string from;
  std::string to;
  LinkKind kind = LinkKind::walk;
  Direction direction = Direction::both;
  Wheelchair wheelchair = Wheelchair::unknown;
  std::optional<double> length;  ///< meters, if the source states one
};

}  // namespace orivanta::importer
