#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <pugixml.hpp>
#include <utility>
#include <vector>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/Read/Osm/XmlElements.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

std::string_view attribute(const pugi::xml_node& element, const char* name) {
  return element.attribute(name).value();
}

OsmTags tagsOf(const pugi::xml_node& element) {
  OsmTags tags;
  for (const pugi::xml_node& tag : element.children("tag"))
    tags.add(attribute(tag, "k"), attribute(tag, "v"));
  return tags;
}

constexpr double nowhere = 1000.0;  // degrees

double degrees(const pugi::xml_node& element, const char* name) {
  return element.attribute(name).as_double(nowhere);
}

// Overpass may write positions into references, and leave out the numbers of the nodes.
OsmWay wayOf(const pugi::xml_node& element, std::int64_t id, OsmData& data) {
  OsmWay way{id, {}, tagsOf(element)};
  for (const pugi::xml_node& reference : element.children("nd")) {
    auto node = osmNumber(attribute(reference, "ref"));
    if (!reference.attribute("lat")) {
      if (node) way.nodes.push_back(*node);
      continue;
    }
    const double longitude = degrees(reference, "lon");
    const double latitude = degrees(reference, "lat");
    OsmPosition position;
    if (!node && toOsmPosition(longitude, latitude, position))
      node = OsmData::unnamedNode(position);
    if (!node) continue;
    way.nodes.push_back(*node);
    data.addNode(*node, longitude, latitude, {});
  }
  return way;
}

OsmRelation relationOf(const pugi::xml_node& element, std::int64_t id, OsmData& data) {
  OsmRelation relation{id, {}, tagsOf(element)};
  for (const pugi::xml_node& member : element.children("member")) {
    const auto type = osmType(attribute(member, "type"));
    const auto reference = osmNumber(attribute(member, "ref"));
    if (!type || !reference) continue;
    relation.members.push_back({*reference, *type, attribute(member, "role") == "inner"});
    if (*type == OsmType::way && member.child("nd"))
      data.addMemberWay(wayOf(member, *reference, data));
  }
  return relation;
}

// Returns the cause if the element cannot be read.
std::string_view addElement(const pugi::xml_node& element, OsmData& data) {
  const std::string_view name = element.name();
  const auto type = osmType(name);
  if (!type || name.size() == 1) return {};
  if (attribute(element, "action") == "delete" || attribute(element, "visible") == "false")
    return {};
  const auto id = osmNumber(attribute(element, "id"));
  if (!id) return "it has no numeric id";
  if (*type == OsmType::way) data.addWay(wayOf(element, *id, data));
  if (*type == OsmType::relation) data.addRelation(relationOf(element, *id, data));
  if (*type != OsmType::node) return {};
  if (!element.attribute("lat") || !element.attribute("lon")) return "it has no position";
  data.addNode(*id, degrees(element, "lon"), degrees(element, "lat"), tagsOf(element));
  return {};
}

void requireUtf8(const SourceFile& file) {
  const std::string_view start = std::string_view(file.bytes).substr(0, 200);
  const bool isWide = start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF");
  const std::string_view declaration = start.substr(0, start.find("?>"));
  const std::size_t named = declaration.find("encoding=");
  std::string_view encoding;
  if (named != std::string_view::npos)
    encoding = declaration.substr(std::min(named + 10, declaration.size()), 5);
  if (!isWide && (encoding.empty() || encoding == "UTF-8" || encoding == "utf-8" ||
                  encoding == "US-AS" || encoding == "utf8\"" || encoding == "UTF8\""))
    return;
  throw SourceError(fmt::format("{}: the text is not in UTF-8; save it in UTF-8", file.name));
}

void readXml(const SourceFile& file, OsmData& data, Findings& findings) {
  requireUtf8(file);
  XmlElements elements(file.bytes);
  if (const std::string_view root = elements.enterRoot(); root != "osm")
    throw SourceError(fmt::format(
        "{}: the document begins with {} instead of <osm>; is this an OpenStreetMap file?",
        file.name, root.empty() ? "no element" : fmt::format("<{}>", root.substr(0, 40))));
  pugi::xml_document document;
  for (std::string_view element; !(element = elements.next()).empty();) {
    const auto result = document.load_buffer(element.data(), element.size(), pugi::parse_default,
                                             pugi::encoding_utf8);
    const pugi::xml_node root = document.document_element();
    if (std::string_view(root.name()) == "remark")
      reportRemark(file.name, std::string(trimmed(root.child_value())), findings);
    const std::string_view cause = result ? addElement(root, data) : result.description();
    if (!cause.empty())
      reportUnreadable(file.name, fmt::format("The element in line {}", elements.lineOf(element)),
                       std::string(cause), findings);
  }
  if (elements.isCut()) reportCut(file.name, elements.lineOf({}), findings);
}

}  // namespace

Building readOsmXml(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  return readOsm(std::move(files), options, findings,
                 [&](const SourceFile& file, OsmData& data) { readXml(file, data, findings); });
}

}  // namespace orivanta::importer
