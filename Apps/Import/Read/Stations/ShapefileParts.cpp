#include "Apps/Import/Read/Stations/ShapefileParts.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace orivanta::importer {

namespace {

constexpr double largestCoordinate = 1e8;

std::uint32_t bigEndian(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t each = 0; each < 4; ++each)
    number = number << 8U | static_cast<unsigned char>(bytes[at + each]);
  return number;
}

void append(std::string& bytes, std::uint32_t number) {
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    bytes += static_cast<char>(number >> shift & 255U);
}

std::vector<std::vector<Point>> partsOf(const SHPObject& shape) {
  std::vector<std::vector<Point>> parts;
  const int count = std::max(shape.nParts, shape.nVertices > 0 ? 1 : 0);
  for (int part = 0; part < count; ++part) {
    const int start = shape.nParts > 0 ? shape.panPartStart[part] : 0;
    const int end = part + 1 < shape.nParts ? shape.panPartStart[part + 1] : shape.nVertices;
    std::vector<Point>& points = parts.emplace_back();
    for (int each = start; each < end; ++each)
      if (std::abs(shape.padfX[each]) <= largestCoordinate &&
          std::abs(shape.padfY[each]) <= largestCoordinate)
        points.push_back({shape.padfX[each], shape.padfY[each]});
  }
  return parts;
}

// Outer rings are clockwise and holes are counterclockwise. A hole belongs to the last outer ring
// before it that contains it; if finding that takes too long, to the last one.
void addPolygons(std::vector<std::vector<Point>> rings, GeoGeometry& geometry) {
  constexpr std::size_t triedRings = 64;
  std::size_t effort = 20'000'000;
  std::vector<Polygon>& polygons = geometry.polygons;
  for (std::vector<Point>& ring : rings) {
    if (ring.empty()) continue;
    if (polygons.empty() || package::signedArea(ring) <= 0.0) {
      polygons.push_back({std::move(ring), {}});
      continue;
    }
    std::size_t owner = polygons.size() - 1;
    for (std::size_t back = 0; back < std::min(polygons.size(), triedRings); ++back) {
      const Outline& outer = polygons[polygons.size() - 1 - back].outer;
      if (outer.size() > effort) break;
      effort -= outer.size();
      if (!package::contains(outer, ring.front())) continue;
      owner = polygons.size() - 1 - back;
      break;
    }
    polygons[owner].holes.push_back(std::move(ring));
  }
}

}  // namespace

std::size_t statedSize(std::string_view shp) { return bigEndian(shp, 24) * std::size_t{2}; }

std::string shapefileIndex(std::string_view shp) {
  std::string records;
  std::size_t at = shapefileHeader;
  while (at + 8 <= shp.size()) {
    const std::uint32_t words = bigEndian(shp, at + 4);
    const std::size_t next = at + 8 + std::size_t{words} * 2;
    if (next > shp.size()) break;
    append(records, static_cast<std::uint32_t>(at / 2));
    append(records, words);
    at = next;
  }
  std::string index(shp.substr(0, 24));
  append(index, static_cast<std::uint32_t>((shapefileHeader + records.size()) / 2));
  index += shp.substr(28, shapefileHeader - 28);
  return index + records;
}

GeoGeometry shapefileGeometry(const SHPObject& shape) {
  GeoGeometry geometry;
  switch (shape.nSHPType) {
    case SHPT_POINT:
    case SHPT_POINTZ:
    case SHPT_POINTM:
    case SHPT_MULTIPOINT:
    case SHPT_MULTIPOINTZ:
    case SHPT_MULTIPOINTM:
      for (const auto& part : partsOf(shape))
        geometry.points.insert(geometry.points.end(), part.begin(), part.end());
      break;
    case SHPT_ARC:
    case SHPT_ARCZ:
    case SHPT_ARCM:
      geometry.lines = partsOf(shape);
      break;
    case SHPT_POLYGON:
    case SHPT_POLYGONZ:
    case SHPT_POLYGONM:
      addPolygons(partsOf(shape), geometry);
      break;
    default:
      break;
  }
  return geometry;
}

}  // namespace orivanta::importer
