#include "Apps/Check/PackageLinks.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/serialize.hpp>
#include <unordered_set>

#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::check {

namespace json = boost::json;

namespace {

// A list of references in records of one kind.
struct Link {
  RecordKind from;
  std::string_view member;
  std::string_view key;  // of the identifier in each element; empty if the element is one itself
  RecordKind to;
  Severity severity;
  std::string_view rule;
  std::string_view effect;
};

using enum RecordKind;

constexpr Link links[] = {
    {node, "paths", "node", node, Severity::violation, "path-to-unknown-node",
     "The path is missing from the walking network."},
    {location, "nodes", "node", node, Severity::violation, "unknown-node",
     "Routes to the place do not use this node."},
    {location, "polygons", "id", polygon, Severity::violation, "unknown-polygon",
     "Tapping or highlighting the place does not include this polygon."},
    {location, "categories", "", category, Severity::warning, "unknown-category",
     "The place is not found under this category."},
    {category, "parents", "", category, Severity::warning, "unknown-category",
     "The category is not below this one."},
    {vortex, "nodes", "", node, Severity::violation, "unknown-connector-node",
     "The connector cannot be entered or left there."},
    {vortex, "polygons", "id", polygon, Severity::violation, "unknown-polygon",
     "Tapping or highlighting the connector does not include this polygon."},
    {vortex, "categories", "", category, Severity::warning, "unknown-category",
     "The connector is not found under this category."},
    {polygon, "entrances", "id", node, Severity::violation, "unknown-entrance",
     "The polygon loses this entrance, so that a room without others counts as open space."},
};

void checkLink(const PackageRecords& records, const Link& link, const Record& record,
               const json::value& element, Findings& findings) {
  const auto id = identifierIn(element, link.key);
  if (id && records.find(link.to, *id) != nullptr) return;
  Finding finding =
      records.findingAbout(record, link.severity, std::string(link.rule), std::string(link.member));
  if (id) {
    finding.message = fmt::format("The {} refers to the {} \"{}\", which does not exist.",
                                  wordFor(link.from), wordFor(link.to), *id);
    finding.advice = fmt::format("Correct the identifier, or remove it from \"{}\".", link.member);
  } else {
    const std::string form =
        link.key.empty() ? R"("...")" : fmt::format(R"({{"{}": "..."}})", link.key);
    finding.message =
        fmt::format("An element of \"{}\" of the {} has no identifier: {}.", link.member,
                    wordFor(link.from), foundation::clipped(json::serialize(element), 60));
    finding.advice = fmt::format("Write it as {}.", form);
  }
  finding.effect = link.effect;
  findings.add(std::move(finding));
}

void checkEntranceFloors(const PackageRecords& records, const Record& polygon, Findings& findings) {
  const auto map = polygon.text("map");
  for (const json::value& element : elementsOf(polygon, "entrances")) {
    const auto id = identifierIn(element, "id");
    const Record* entrance = id ? records.find(node, *id) : nullptr;
    const auto floor = entrance != nullptr && entrance->kept ? entrance->text("map") : std::nullopt;
    if (!map || !floor || *map == *floor) continue;
    Finding finding =
        records.findingAbout(polygon, Severity::warning, "entrance-on-another-floor", "entrances");
    finding.message = fmt::format(
        "The polygon is on the floor \"{}\", its entrance \"{}\" on \"{}\".", *map, *id, *floor);
    finding.effect = "Routes into the place end on another floor than the place.";
    finding.advice = "Correct the \"map\" of one of them, or the entrance.";
    findings.add(std::move(finding));
  }
}

void addEntrancesOf(const Record& polygon, std::unordered_set<std::string_view>& entrances) {
  for (const json::value& element : elementsOf(polygon, "entrances"))
    if (const auto id = identifierIn(element, "id")) entrances.insert(*id);
}

void checkPosition(const PackageRecords& records, const Record& place, Findings& findings) {
  if (!elementsOf(place, "nodes").empty() || !elementsOf(place, "polygons").empty()) return;
  Finding finding =
      records.findingAbout(place, Severity::warning, "place-without-position", "nodes");
  finding.message = fmt::format("The place \"{}\" has neither nodes nor polygons.",
                                place.text("name").value_or(""));
  finding.effect = "No route leads to it, and no floor shows it.";
  finding.advice = "List the node inside it in \"nodes\", and its area in \"polygons\".";
  findings.add(std::move(finding));
}

// Clients drop the nodes of a place that are entrances of its polygons, since a route must end in
// the room and not at its door.
void checkInnerNodes(const PackageRecords& records, const Record& place, Findings& findings) {
  std::unordered_set<std::string_view> entrances;
  for (const json::value& element : elementsOf(place, "polygons"))
    if (const auto id = identifierIn(element, "id"))
      if (const Record* area = records.find(polygon, *id); area != nullptr && area->kept)
        addEntrancesOf(*area, entrances);
  const Record* entrance = nullptr;
  for (const json::value& element : elementsOf(place, "nodes")) {
    const auto id = identifierIn(element, "node");
    const Record* known = id ? records.find(node, *id) : nullptr;
    if (known == nullptr) continue;
    if (!entrances.contains(*id)) return;
    entrance = known;
  }
  if (entrance == nullptr) return;
  Finding finding =
      records.findingAbout(place, Severity::violation, "only-entrance-nodes", "nodes");
  finding.message =
      fmt::format("All nodes of the place \"{}\" are entrances of its polygons, such as \"{}\".",
                  place.text("name").value_or(""), entrance->label());
  finding.effect = "The place has no nodes then, and no route leads to it.";
  finding.advice =
      "Add a node inside the room, join it with the entrance by paths in both directions, and list "
      "it in \"nodes\" of the place.";
  findings.add(std::move(finding));
}

}  // namespace

void checkLinks(const PackageRecords& records, Findings& findings) {
  for (const Link& link : links)
    if (records[link.to].document)
      for (const Record& record : records[link.from].records)
        if (record.kept)
          for (const json::value& element : elementsOf(record, link.member))
            checkLink(records, link, record, element, findings);
  for (const Record& record : records[polygon].records)
    if (record.kept) checkEntranceFloors(records, record, findings);
  for (const Record& record : records[location].records) {
    if (!record.kept) continue;
    checkPosition(records, record, findings);
    checkInnerNodes(records, record, findings);
  }
}

}  // namespace orivanta::check
