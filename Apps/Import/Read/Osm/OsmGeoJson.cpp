#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/Read/Osm/OsmGeoJsonTags.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

// Makes nodes, ways and relations of features. The nodes of ways have no names but their positions,
// which `OsmData::finish` replaces.
class Reader {
 public:
  explicit Reader(OsmData& data) : data_(data) {}

  void add(const GeoFeature& feature) {
    addNode(feature);
    addShape(feature);
  }

 private:
  void addNode(const GeoFeature& feature) {
    const auto id = osmObjectId(feature);
    for (const Point point : feature.geometry.points) {
      OsmPosition position;
      if (!toOsmPosition(point.x, point.y, position)) continue;
      const std::int64_t number =
          id && id->type == OsmType::node ? id->id : OsmData::unnamedNode(position);
      data_.addNode(number, point.x, point.y, osmTagsOf(feature.properties, data_));
    }
  }

  void addShape(const GeoFeature& feature) {
    const GeoGeometry& geometry = feature.geometry;
    if (geometry.lines.empty() && geometry.polygons.empty()) return;
    OsmObjectId id = osmObjectId(feature).value_or(OsmObjectId{OsmType::way, --unnamedWay_});
    if (id.isGuessed) id.id = numberOfRow(id, geometry);
    OsmTags tags = osmTagsOf(feature.properties, data_);
    const bool isWay = id.type != OsmType::relation;
    const bool isSimple = geometry.polygons.size() <= 1 && geometry.lines.size() <= 1 &&
                          (geometry.polygons.empty() || geometry.polygons[0].holes.empty());
    if (isWay && isSimple)
      return addWay(id.id, geometry.lines.empty() ? geometry.polygons[0].outer : geometry.lines[0],
                    geometry.lines.empty(), std::move(tags));
    if (geometry.polygons.empty()) return;  // a route
    OsmRelation relation{isWay ? --unnamedWay_ : id.id, {}, {}};
    relation.tags.add("type", "multipolygon");
    if (!isWay) {
      for (const auto& [key, value] : tags) relation.tags.add(key, value);
      tags = {};
    }
    // The tags of a way with holes are on its outer ring.
    for (const Polygon& polygon : geometry.polygons) {
      addRing(isWay && relation.members.empty() ? id.id : --unnamedWay_, polygon.outer, false,
              std::move(tags), relation);
      tags = {};
      for (const Outline& hole : polygon.holes) addRing(--unnamedWay_, hole, true, {}, relation);
    }
    data_.addRelation(std::move(relation));
  }

  // Databases split multipolygons into rows that repeat an identifier: all but the first get other
  // numbers. Rows that begin at the same point are the same one, as in extracts that overlap.
  std::int64_t numberOfRow(OsmObjectId id, const GeoGeometry& geometry) {
    const Outline& line =
        geometry.polygons.empty() ? geometry.lines[0] : geometry.polygons[0].outer;
    OsmPosition start;
    if (line.empty() || !toOsmPosition(line[0].x, line[0].y, start)) return id.id;
    std::map<std::int64_t, std::int64_t>& rows = rows_[{id.type, id.id}];
    const bool isFirst = rows.empty();
    const auto [row, isNew] = rows.try_emplace(OsmData::unnamedNode(start), id.id);
    if (isNew && !isFirst) row->second = --unnamedWay_;
    return row->second;
  }

  void addRing(std::int64_t id, const Outline& ring, bool isInner, OsmTags tags,
               OsmRelation& relation) {
    addWay(id, ring, true, std::move(tags));
    relation.members.push_back({id, OsmType::way, isInner});
  }

  // Some programs do not repeat the first point of a ring.
  void addWay(std::int64_t id, const std::vector<Point>& points, bool isRing, OsmTags tags) {
    OsmWay way{id, {}, std::move(tags)};
    for (const Point point : points) {
      OsmPosition position;
      if (!toOsmPosition(point.x, point.y, position)) continue;
      way.nodes.push_back(OsmData::unnamedNode(position));
      data_.addNode(way.nodes.back(), point.x, point.y, {});
    }
    if (isRing && !way.nodes.empty() && way.nodes.front() != way.nodes.back())
      way.nodes.push_back(way.nodes.front());
    data_.addWay(std::move(way));
  }

  OsmData& data_;
  // Editors count new objects downward from -1.
  std::int64_t unnamedWay_ = std::numeric_limits<std::int64_t>::min() / 2;
  // The numbers of shapes whose types are not stated, by their identifiers and first corners.
  std::map<std::pair<OsmType, std::int64_t>, std::map<std::int64_t, std::int64_t>> rows_;
};

}  // namespace

Building readOsmGeoJson(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  std::size_t vertices = 0;
  std::optional<Reader> reader;
  return readOsm(std::move(files), options, findings, [&](const SourceFile& file, OsmData& data) {
    // One for all files: it also numbers what has no identifier.
    if (!reader) reader.emplace(data);
    readGeoJsonInDegrees(file, options.limits, vertices, findings,
                         [&](const GeoFeature& feature) { reader->add(feature); });
  });
}

}  // namespace orivanta::importer
