#include "Apps/Import/Read/GeoJsonGeometry.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::importer {

namespace json = boost::json;

namespace {

// Larger than any coordinate in degrees or in meters on Earth.
constexpr double largestCoordinate = 1e8;
constexpr int deepestCollection = 8;

struct Unreadable {
  std::string reason;
};

const json::array& arrayOf(const json::value& value) {
  if (!value.is_array()) throw Unreadable{"the coordinates are not nested as its type requires"};
  return value.get_array();
}

double coordinateOf(const json::value& value) {
  double coordinate = NAN;
  if (value.is_double()) coordinate = value.get_double();
  if (value.is_int64()) coordinate = static_cast<double>(value.get_int64());
  if (value.is_uint64()) coordinate = static_cast<double>(value.get_uint64());
  if (!(std::abs(coordinate) <= largestCoordinate))
    throw Unreadable{"a coordinate is no number, or is too large"};
  return coordinate;
}

class Reader {
 public:
  Reader(GeoGeometry& geometry, std::size_t& vertices) : geometry_(geometry), vertices_(vertices) {}

  void read(const json::value& value, int depth) {
    if (value.is_null()) return;
    if (!value.is_object()) throw Unreadable{"the geometry is not an object"};
    const json::object& object = value.get_object();
    const json::value* type = object.if_contains("type");
    if (type == nullptr || !type->is_string()) throw Unreadable{"the geometry has no type"};
    const std::string_view name(type->get_string().data(), type->get_string().size());
    if (name == "GeometryCollection") return readCollection(object, depth);
    const json::value* coordinates = object.if_contains("coordinates");
    if (coordinates == nullptr) throw Unreadable{"the geometry has no coordinates"};
    readParts(name, arrayOf(*coordinates));
  }

 private:
  void readCollection(const json::object& object, int depth) {
    if (depth >= deepestCollection) throw Unreadable{"geometry collections are nested too deeply"};
    const json::value* parts = object.if_contains("geometries");
    if (parts == nullptr) throw Unreadable{"the geometry collection has no geometries"};
    for (const json::value& part : arrayOf(*parts)) read(part, depth + 1);
  }

  void readParts(std::string_view type, const json::array& coordinates) {
    if (type == "Point") {
      if (!coordinates.empty()) geometry_.points.push_back(position(coordinates));
    } else if (type == "MultiPoint") {
      for (const Point point : positions(coordinates)) geometry_.points.push_back(point);
    } else if (type == "LineString") {
      addLine(coordinates);
    } else if (type == "MultiLineString") {
      for (const json::value& part : coordinates) addLine(arrayOf(part));
    } else if (type == "Polygon") {
      addPolygon(coordinates);
    } else if (type == "MultiPolygon") {
      for (const json::value& part : coordinates) addPolygon(arrayOf(part));
    } else {
      throw Unreadable{"the geometry has the unknown type \"" + std::string(type) + '"'};
    }
  }

  Point position(const json::array& coordinates) {
    if (coordinates.size() < 2) throw Unreadable{"a position has fewer than two coordinates"};
    ++vertices_;
    return {coordinateOf(coordinates[0]), coordinateOf(coordinates[1])};
  }

  std::vector<Point> positions(const json::array& coordinates) {
    std::vector<Point> points;
    points.reserve(coordinates.size());
    for (const json::value& each : coordinates) points.push_back(position(arrayOf(each)));
    return points;
  }

  void addLine(const json::array& coordinates) {
    if (!coordinates.empty()) geometry_.lines.push_back(positions(coordinates));
  }

  void addPolygon(const json::array& rings) {
    if (rings.empty()) return;
    Polygon polygon;
    polygon.outer = positions(arrayOf(rings[0]));
    for (std::size_t each = 1; each < rings.size(); ++each)
      polygon.holes.push_back(positions(arrayOf(rings[each])));
    geometry_.polygons.push_back(std::move(polygon));
  }

  GeoGeometry& geometry_;
  std::size_t& vertices_;
};

}  // namespace

std::string readGeometry(const json::value& value, GeoGeometry& geometry, std::size_t& vertices) {
  try {
    Reader(geometry, vertices).read(value, 0);
  } catch (Unreadable& unreadable) {
    geometry = {};
    return std::move(unreadable.reason);
  }
  return {};
}

}  // namespace orivanta::importer
