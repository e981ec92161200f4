#include <fmt/core.h>

#include <algorithm>
#include <boost/json/value.hpp>
#include <new>
#include <utility>
#include <vector>

#include "Apps/Import/Read/FeatureTexts.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/JsonText.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

namespace json = boost::json;

constexpr double nowhere = 1000.0;  // degrees

std::string_view textOf(const json::object& object, std::string_view member) {
  const json::value* value = object.if_contains(member);
  return value != nullptr && value->is_string() ? std::string_view(value->get_string())
                                                : std::string_view();
}

double degrees(const json::object& object, std::string_view member) {
  const json::value* value = object.if_contains(member);
  boost::system::error_code error;
  return value != nullptr && value->is_number() ? value->to_number<double>(error) : nowhere;
}

std::optional<std::int64_t> numberOf(const json::value* value) {
  if (value == nullptr || !value->is_int64()) return std::nullopt;
  return value->get_int64();
}

const json::array& arrayOf(const json::object& object, std::string_view member) {
  static const json::array none;
  const json::value* value = object.if_contains(member);
  return value != nullptr && value->is_array() ? value->get_array() : none;
}

OsmTags tagsOf(const json::object& element) {
  OsmTags tags;
  const json::value* members = element.if_contains("tags");
  if (members == nullptr || !members->is_object()) return tags;
  for (const auto& [key, value] : members->get_object())
    if (value.is_string()) tags.add(key, value.get_string());
  return tags;
}

// Takes the positions that "out geom" writes. Without the numbers of the nodes, as in "out tags
// geom", their positions name them. Parts of the geometry outside of the area asked for are null.
void addGeometry(const json::object& element, OsmWay& way, OsmData& data) {
  const json::array& geometry = arrayOf(element, "geometry");
  const json::array& nodes = arrayOf(element, "nodes");
  for (std::size_t i = 0; i < std::max(nodes.size(), geometry.size()); ++i) {
    const json::object* point = i < geometry.size() ? geometry[i].if_object() : nullptr;
    const double longitude = point != nullptr ? degrees(*point, "lon") : nowhere;
    const double latitude = point != nullptr ? degrees(*point, "lat") : nowhere;
    auto node = i < nodes.size() ? numberOf(&nodes[i]) : std::nullopt;
    OsmPosition position;
    if (nodes.empty() && toOsmPosition(longitude, latitude, position))
      node = OsmData::unnamedNode(position);
    if (!node) continue;
    way.nodes.push_back(*node);
    if (point != nullptr) data.addNode(*node, longitude, latitude, {});
  }
}

OsmWay wayOf(const json::object& element, std::int64_t id, OsmData& data) {
  OsmWay way{id, {}, tagsOf(element)};
  addGeometry(element, way, data);
  return way;
}

OsmRelation relationOf(const json::object& element, std::int64_t id, OsmData& data) {
  OsmRelation relation{id, {}, tagsOf(element)};
  for (const json::value& value : arrayOf(element, "members")) {
    if (!value.is_object()) continue;
    const json::object& member = value.get_object();
    const auto type = osmType(textOf(member, "type"));
    const auto reference = numberOf(member.if_contains("ref"));
    if (!type || !reference) continue;
    relation.members.push_back({*reference, *type, textOf(member, "role") == "inner"});
    if (*type == OsmType::way && member.contains("geometry"))
      data.addMemberWay(wayOf(member, *reference, data));
  }
  return relation;
}

// Returns the cause if the element cannot be read.
std::string_view addElement(const json::value& value, OsmData& data) {
  if (!value.is_object()) return "it is no JSON object";
  const json::object& element = value.get_object();
  const auto type = osmType(textOf(element, "type"));
  if (!type) return {};
  const auto id = numberOf(element.if_contains("id"));
  if (!id) return "it has no numeric id";
  if (*type == OsmType::node)
    data.addNode(*id, degrees(element, "lon"), degrees(element, "lat"), tagsOf(element));
  if (*type == OsmType::way) data.addWay(wayOf(element, *id, data));
  if (*type == OsmType::relation) data.addRelation(relationOf(element, *id, data));
  return {};
}

// Parses one element at a time, so that a large file takes little memory.
void readElements(const SourceFile& file, const Limits& limits, OsmData& data, Findings& findings) {
  const std::string_view text = withoutByteOrderMark(file.bytes);
  const FeatureTexts elements = splitFeatures(text, 2 * limits.vertices, "elements");
  if (!elements.found)
    throw SourceError(fmt::format(
        "{}: no member \"elements\"; is this an answer of Overpass in JSON?", file.name));
  const json::storage_ptr memory = boundedMemory(limits.bytes / 4);
  if (const ParsedJson frame = parseJson(elements.frame, memory); frame.value.is_object())
    if (const auto remark = textOf(frame.value.get_object(), "remark"); !remark.empty())
      reportRemark(file.name, std::string(remark), findings);
  std::size_t number = 0;
  for (const std::string_view element : elements.features) {
    const std::string place = fmt::format("Element {} of \"elements\"", ++number);
    const ParsedJson parsed = parseJson(element, memory);
    const std::string_view cause =
        parsed.error.empty() ? addElement(parsed.value, data) : parsed.error;
    if (!cause.empty()) reportUnreadable(file.name, place, std::string(cause), findings);
  }
  if (elements.cut)
    reportCut(file.name, 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')),
              findings);
}

}  // namespace

Building readOverpassJson(std::vector<SourceFile> files, const Options& options,
                          Findings& findings) {
  return readOsm(std::move(files), options, findings, [&](const SourceFile& file, OsmData& data) {
    readElements(file, options.limits, data, findings);
  });
}

}  // namespace orivanta::importer
