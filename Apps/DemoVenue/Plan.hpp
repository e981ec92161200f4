// The demo venue as its architect drew it: floors, walkways, shops and connectors, in meters.
// Everything in the package is derived from this.
#pragma once

#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Geometry.hpp"
#include "Apps/DemoVenue/Shapes.hpp"

namespace orivanta::demo {

/// A name in the venue's languages. Where German is empty, Germans say the English name.
struct Names {
  std::string_view english;
  std::string_view japanese;
  std::string_view arabic;
  std::string_view german = {};
};

struct Category {
  std::string_view id;
  std::string_view parent;  ///< empty for a top one
  Names names;
  std::string_view type = "tenant";  ///< of its locations: "tenant", "amenity" or "entrance"
  std::string_view openingHours = {};
};

/// A shop or another destination on one floor. The same id on several floors is one location with
/// a part on each.
struct Place {
  std::string_view id;
  std::string_view category;
  Names names;
  std::string_view description;
  Shape shape;
};

/// An open line through the middle of a walkway, or a closed one. Lines are joined where they
/// cross; an open end that comes near another line is led onto it.
struct WalkingLine {
  std::vector<Point> points;
  bool closed = false;
};

/// A part of the floor that is walked on. No two of a floor overlap.
struct Walkway {
  std::string_view id;
  Outline outline;
};

struct Floor {
  std::string_view id;  ///< "b1", "g", "l1", "l2", "roof": begins the identifiers of the floor
  std::string_view shortName;
  Names names;
  double elevation;                 ///< meters above the street
  std::vector<Outline> slab = {};   ///< what carries the floor, in pieces without holes
  std::vector<Outline> voids = {};  ///< where one looks down to the floor below
  std::vector<Walkway> walkways = {};
  std::vector<WalkingLine> lines = {};
  std::vector<Place> places = {};
  std::vector<Outline> lawns = {};   ///< green, not walked on
  std::vector<Outline> inlays = {};  ///< brass lines in the floor
  std::vector<Outline> railings = {};
  std::vector<Point> tables = {};  ///< round, a meter and a half across
  std::vector<Point> trees = {};   ///< in tubs of a meter's radius
};

enum class ConnectorKind { Lift, Escalator, Stairs, Ramp };

/// Whether people get on and off at a stop, or one of the two.
enum class Flow { Both, On, Off };

struct Stop {
  std::string_view floor;
  Point node;              ///< where one steps on or off
  std::vector<Point> way;  ///< points on the way to the walking lines, such as a door
  Outline outline;         ///< what is seen of the connector on this floor
  Flow flow = Flow::Both;
};

/// A lift, a flight of stairs or the like. Stops from the lowest to the highest.
struct Connector {
  std::string_view id;
  ConnectorKind kind;
  Names names;
  bool accessible;
  double weight;  ///< of a ride: the difference of elevation times the weight, plus the weight
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

/// The whole venue. Cheap enough to make again; keep it where it is used several times.
Plan makePlan();

// The parts, each in a file of its own below Plan/.
std::vector<Category> makeCategories();
std::vector<Connector> makeConnectors();
Floor makeBasement();
Floor makeGroundFloor();
Floor makeFirstFloor();
Floor makeSecondFloor();
Floor makeRoof();

}  // namespace orivanta::demo
