#include "Apps/Import/Read/Osm/OsmGeoJsonTags.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/json/serialize.hpp>
#include <string>
#include <string_view>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/JsonText.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"

namespace orivanta::importer {

namespace {

namespace json = boost::json;

// Reads "way/1", and "w1" and "a2" as osmium writes them: areas of ways have twice their number,
// those of relations one more.
std::optional<OsmObjectId> objectIdIn(std::string_view text) {
  const std::size_t slash = text.find('/');
  const std::string_view kind = text.substr(0, slash == std::string_view::npos ? 1 : slash);
  const auto number = osmNumber(text.substr(
      std::min(text.size(), slash == std::string_view::npos ? std::size_t{1} : slash + 1)));
  if (!number) return std::nullopt;
  if (kind == "a" || kind == "area")
    return OsmObjectId{*number % 2 == 0 ? OsmType::way : OsmType::relation, *number / 2};
  if (const auto type = osmType(kind)) return OsmObjectId{*type, *number};
  return std::nullopt;
}

std::string textOf(const json::value* value) {
  if (value == nullptr || value->is_null()) return {};
  if (value->is_string()) return std::string(value->get_string());
  if (value->is_double()) return fmt::format("{}", value->get_double());
  if (!value->is_array()) return json::serialize(*value);
  std::string list;
  for (const json::value& item : value->get_array())
    list += (list.empty() ? "" : ";") + textOf(&item);
  return list;
}

// The pairs of properties with a type and a number.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> idPairs = {
    {{"@type", "@id"},
     {"type", "id"},
     {"osm_type", "osm_id"},
     {"element", "id"},
     {"element_type", "osmid"}}};

bool isTag(std::string_view key) {
  for (const std::string_view other :
       {"id",      "timestamp",  "version",   "changeset", "user",    "uid",
        "visible", "meta",       "relations", "tainted",   "ndrefs",  "full_id",
        "osm_id",  "osm_way_id", "osm_type",  "osmid",     "element", "element_type",
        "z_order", "other_tags", "all_tags",  "tags"})
    if (key == other) return false;
  return !key.starts_with('@');
}

void addTag(std::string_view key, const json::value& value, OsmTags& tags, OsmData& data) {
  if (value.is_string())
    tags.add(key, value.get_string());
  else
    tags.add(key, data.keep(textOf(&value)));
}

// Takes a text in quotation marks from the front. Backslashes stand before characters that are to
// be taken as they are.
std::optional<std::string> takeQuoted(std::string_view& text) {
  const std::size_t start = text.find('"');
  if (start == text.npos) return std::nullopt;
  std::string taken;
  for (std::size_t at = start + 1; at < text.size(); ++at) {
    if (text[at] == '"') {
      text.remove_prefix(at + 1);
      return taken;
    }
    if (text[at] == '\\' && at + 1 < text.size()) ++at;
    taken += text[at];
  }
  return std::nullopt;
}

// Reads what PostgreSQL calls hstore: "key"=>"value","key"=>"value".
void addHstore(std::string_view text, OsmTags& tags, OsmData& data) {
  while (const auto key = takeQuoted(text)) {
    const auto value = takeQuoted(text);
    if (!value) return;
    tags.add(data.keep(*key), data.keep(*value));
  }
}

// Adds further tags that a single property has.
void addPacked(const json::value* value, OsmTags& tags, OsmData& data) {
  if (value == nullptr) return;
  if (value->is_object())
    for (const auto& [key, each] : value->get_object()) addTag(key, each, tags, data);
  if (!value->is_string()) return;
  const std::string_view text(value->get_string());
  if (!text.starts_with('{')) return addHstore(text, tags, data);
  const ParsedJson parsed = parseJson(text, value->storage());
  if (!parsed.value.is_object()) return;
  for (const auto& [key, each] : parsed.value.get_object())
    tags.add(data.keep(std::string_view(key)), data.keep(textOf(&each)));
}

// The level of the relation that collects the rooms of a level, as the first indoor maps had it.
void addLevelOfRelation(const json::object& properties, OsmTags& tags, OsmData& data) {
  for (const char* key : {"@relations", "relations"}) {
    const json::array* relations = memberArray(properties, key);
    if (relations == nullptr) continue;
    for (const json::value& each : *relations) {
      const json::object* relation = each.if_object();
      const json::object* own = relation ? memberObject(*relation, "reltags") : nullptr;
      if (own == nullptr || memberText(*own, "type") != "level") continue;
      if (const json::value* level = memberOf(*own, "level")) addTag("level", *level, tags, data);
      return;
    }
  }
}

}  // namespace

std::optional<OsmObjectId> osmObjectId(const GeoFeature& feature) {
  if (const auto id = objectIdIn(feature.id)) return id;
  const json::object& properties = feature.properties;
  for (const char* key : {"@id", "id", "full_id", "@osmId"})
    if (const json::value* text = properties.if_contains(key); text && text->is_string())
      if (const auto found = objectIdIn(std::string_view(text->get_string()))) return found;
  for (const auto& [type, number] : idPairs)
    if (const json::value* text = properties.if_contains(type))
      if (const auto found =
              objectIdIn(textOf(text) + "/" + textOf(properties.if_contains(number))))
        return found;
  // GDAL writes both, one of which is null for areas; others write only "osm_id".
  if (const auto way = osmNumber(textOf(properties.if_contains("osm_way_id"))))
    return OsmObjectId{OsmType::way, *way};
  const auto number = osmNumber(textOf(properties.if_contains("osm_id")));
  if (!number) return std::nullopt;
  const GeoGeometry& geometry = feature.geometry;
  if (!geometry.points.empty()) return OsmObjectId{OsmType::node, *number};
  const auto& polygons = geometry.polygons;
  const bool isRelation =
      *number < 0 || polygons.size() > 1 || geometry.lines.size() > 1 ||
      (!polygons.empty() && (!polygons[0].holes.empty() || properties.contains("osm_way_id")));
  return OsmObjectId{isRelation ? OsmType::relation : OsmType::way, *number, true};
}

OsmTags osmTagsOf(const json::object& properties, OsmData& data) {
  const json::object* nested = memberObject(properties, "tags");
  OsmTags tags;
  for (const auto& [key, value] : nested != nullptr ? *nested : properties)
    if (isTag(key)) addTag(key, value, tags, data);
  for (const char* key : {"other_tags", "all_tags"})
    addPacked(properties.if_contains(key), tags, data);
  if (nested == nullptr) addPacked(properties.if_contains("tags"), tags, data);
  // Of a repeated key, the first value counts, so that a level of its own comes first.
  addLevelOfRelation(properties, tags, data);
  return tags;
}

}  // namespace orivanta::importer
