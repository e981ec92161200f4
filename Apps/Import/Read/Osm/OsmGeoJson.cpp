#include <fmt/core.h>

#include <algorithm>
#include <boost/json/serialize.hpp>
#include <limits>
#include <optional>
#include <utility>

#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

namespace json = boost::json;

struct ObjectId {
  OsmType type = OsmType::node;
  std::int64_t id = 0;
};

// Reads "way/1", and "w1" and "a2" as osmium writes them: areas of ways have twice their number,
// those of relations one more.
std::optional<ObjectId> objectId(std::string_view text) {
  const std::size_t slash = text.find('/');
  const std::string_view kind = text.substr(0, slash == std::string_view::npos ? 1 : slash);
  const auto number = osmNumber(text.substr(
      std::min(text.size(), slash == std::string_view::npos ? std::size_t{1} : slash + 1)));
  if (!number) return std::nullopt;
  if (kind == "a" || kind == "area")
    return ObjectId{*number % 2 == 0 ? OsmType::way : OsmType::relation, *number / 2};
  if (const auto type = osmType(kind)) return ObjectId{*type, *number};
  return std::nullopt;
}

std::string textOf(const json::value* value) {
  if (value == nullptr || value->is_null()) return {};
  if (value->is_string()) return std::string(value->get_string());
  if (!value->is_array()) return json::serialize(*value);
  std::string list;
  for (const json::value& item : value->get_array())
    list += (list.empty() ? "" : ";") + textOf(&item);
  return list;
}

// The type and the number may also be in the properties, as "@type" and "@id" or without "@".
std::optional<ObjectId> objectId(const GeoFeature& feature) {
  if (const auto id = objectId(feature.id)) return id;
  for (const std::string prefix : {"@", ""}) {
    const std::string id = textOf(feature.properties.if_contains(prefix + "id"));
    if (const auto found = objectId(id)) return found;
    const std::string type = textOf(feature.properties.if_contains(prefix + "type"));
    if (const auto found = objectId(type + "/" + id)) return found;
  }
  return std::nullopt;
}

bool isTag(std::string_view key) {
  for (const std::string_view other : {"id", "timestamp", "version", "changeset", "user", "uid",
                                       "visible", "meta", "relations", "tainted", "ndrefs"})
    if (key == other) return false;
  return !key.starts_with('@');
}

OsmTags tagsOf(const json::object& properties, OsmData& data) {
  const json::value* nested = properties.if_contains("tags");
  OsmTags tags;
  for (const auto& [key, value] :
       nested != nullptr && nested->is_object() ? nested->get_object() : properties) {
    if (!isTag(key)) continue;
    if (value.is_string())
      tags.add(key, value.get_string());
    else
      tags.add(key, data.keep(textOf(&value)));
  }
  return tags;
}

// Makes nodes, ways and relations of features. The nodes of ways have no names but their positions,
// which `OsmData::nameNodes` replaces.
class Reader {
 public:
  explicit Reader(OsmData& data) : data_(data) {}

  void add(const GeoFeature& feature) {
    addNode(feature);
    addShape(feature);
  }

 private:
  void addNode(const GeoFeature& feature) {
    const auto id = objectId(feature);
    for (const Point point : feature.geometry.points) {
      OsmPosition position;
      if (!toOsmPosition(point.x, point.y, position)) continue;
      const std::int64_t number =
          id && id->type == OsmType::node ? id->id : OsmData::unnamedNode(position);
      data_.addNode(number, point.x, point.y, tagsOf(feature.properties, data_));
    }
  }

  void addShape(const GeoFeature& feature) {
    const GeoGeometry& geometry = feature.geometry;
    if (geometry.lines.empty() && geometry.polygons.empty()) return;
    const ObjectId id = objectId(feature).value_or(ObjectId{OsmType::way, --unnamedWay_});
    OsmTags tags = tagsOf(feature.properties, data_);
    const bool isWay = id.type != OsmType::relation;
    const bool isSimple = geometry.polygons.size() <= 1 && geometry.lines.size() <= 1 &&
                          (geometry.polygons.empty() || geometry.polygons[0].holes.empty());
    if (isWay && isSimple)
      return addWay(id.id, geometry.lines.empty() ? geometry.polygons[0].outer : geometry.lines[0],
                    std::move(tags));
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

  void addRing(std::int64_t id, const Outline& ring, bool isInner, OsmTags tags,
               OsmRelation& relation) {
    addWay(id, ring, std::move(tags));
    relation.members.push_back({id, OsmType::way, isInner});
  }

  void addWay(std::int64_t id, const std::vector<Point>& points, OsmTags tags) {
    OsmWay way{id, {}, std::move(tags)};
    for (const Point point : points) {
      OsmPosition position;
      if (!toOsmPosition(point.x, point.y, position)) continue;
      way.nodes.push_back(OsmData::unnamedNode(position));
      data_.addNode(way.nodes.back(), point.x, point.y, {});
    }
    data_.addWay(std::move(way));
  }

  OsmData& data_;
  // Editors count new objects downward from -1.
  std::int64_t unnamedWay_ = std::numeric_limits<std::int64_t>::min() / 2;
};

}  // namespace

Building readOsmGeoJson(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  std::size_t vertices = 0;
  std::optional<Reader> reader;
  return readOsm(
      std::move(files), options, findings,
      [&](const SourceFile& file, OsmData& data) {
        // One for all files: it also numbers what has no identifier.
        if (!reader) reader.emplace(data);
        readGeoJsonInDegrees(file, options.limits, vertices, findings,
                             [&](const GeoFeature& feature) { reader->add(feature); });
      },
      [](OsmData& data) { data.nameNodes(); });
}

}  // namespace orivanta::importer
