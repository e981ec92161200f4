// The plan of the demo venue: floors, walkways, shops and connectors, in meters. The whole package
// is derived from it.
#pragma once

#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Shapes.hpp"
#include "Apps/Package/Geometry.hpp"

namespace orivanta::demo {

/// A name in the venue's languages. If `german` is empty, the English name is used in German too.
struct Names {
  std::string_view english;
  std::string_view japanese;
  std::string_view arabic;
  std::string_view german = {};
};

struct Category {
  std::string_view id;
  std::string_view parent;  ///< empty for a top-level category
  Names names;
  std::string_view type = "tenant";  ///< type of its locations: "tenant", "amenity" or "entrance"
  std::string_view openingHours = {};
};

/// A shop or another destination on one floor. Places with the same id on several floors form one
/// location.
struct Place {
  std::string_view id;
  std::string_view category;
  Names names;
  std::string_view description;
  Shape shape;
};

/// An open line along the middle of a walkway, or a closed one. Lines are connected where they
/// cross; an open end near another line is extended to it.
struct WalkingLine {
  std::vector<Point> points;
  bool closed = false;
};

/// A part of the floor that people walk on. Walkways of a floor do not overlap.
struct Walkway {
  std::string_view id;
  Outline outline;
};

struct Floor {
  std::string_view id;  ///< "b1", "g", "l1", "l2", "roof": prefix of the floor's identifiers
  std::string_view shortName;
  Names names;
  double elevation;                 ///< meters above the street
  bool outdoor = false;             ///< not below a roof
  std::vector<Outline> slab = {};   ///< the floor plate, in pieces without holes
  std::vector<Outline> voids = {};  ///< openings to the floor below
  std::vector<Walkway> walkways = {};
  std::vector<WalkingLine> lines = {};
  std::vector<Place> places = {};
  std::vector<Outline> lawns = {};   ///< green areas that people do not walk on
  std::vector<Outline> inlays = {};  ///< brass lines in the floor
  std::vector<Outline> railings = {};
  std::vector<Point> tables = {};  ///< round, 1.5 meters in diameter
  std::vector<Point> trees = {};   ///< in tubs with a radius of one meter
};

enum class ConnectorKind { elevator, escalator, stairs, ramp };

/// Whether people get on, off or both at a stop.
enum class Flow { both, on, off };

struct Stop {
  std::string_view floor;
  Point node;              ///< where people step on or off
  std::vector<Point> way;  ///< points on the way to the walking lines, such as a door
  Outline outline;         ///< the visible part of the connector on this floor
  Flow flow = Flow::both;
};

/// An elevator, a flight of stairs or the like, with its stops from bottom to top.
struct Connector {
  std::string_view id;
  ConnectorKind kind;
  Names names;
  bool accessible;
  double weight;  ///< a ride costs the difference of elevation times the weight, plus the weight
  std::vector<Stop> stops;
};

struct Plan {
  std::string_view slug;
  Names names;
  std::string_view description;
  std::vector<Category> categories;
  std::vector<Floor> floors;  ///< the one with the longest side first
  std::vector<Connector> connectors;
};

/// The whole venue. Each call builds it again.
Plan makePlan();

// The parts, each in its own file below Plan/.
std::vector<Category> makeCategories();
std::vector<Connector> makeConnectors();
Floor makeBasement();
Floor makeGroundFloor();
Floor makeFirstFloor();
Floor makeSecondFloor();
Floor makeRoof();

}  // namespace orivanta::demo
