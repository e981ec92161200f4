#include "Apps/Import/Write/PlaceRecords.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Import/Places/GeneratedNames.hpp"
#include "Apps/Import/Write/PlacePictures.hpp"
#include "Apps/Package/Records.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

json::string text(std::string_view view) { return json::string(view.data(), view.size()); }

json::object nodeReference(const PackageLayout& layout, const Node& node) {
  return {{"node", packageId(node.id)}, {"map", layout.mapAt(node.level)}};
}

void addText(json::object& record, std::string_view key, const std::string& value) {
  if (!value.empty()) record[key] = value;
}

std::string descriptionOf(const Place& place, const std::string& language) {
  for (const std::string& key : {language, std::string()})
    if (const auto found = place.description.find(key); found != place.description.end())
      return found->second;
  return place.description.empty() ? std::string() : place.description.begin()->second;
}

// Whether nobody recognizes a place by its category. Doors are everywhere.
bool tellsLittle(const Category& category) {
  return category.parent.empty() || category.id == "entrances" || category.id == "exits";
}

// Makes the records of locations, each with an identifier of its own.
class Locations {
 public:
  Locations(const PackageLayout& layout, const NodeLookup& nodes, UsedCategories& categories)
      : layout_(layout), nodes_(nodes), categories_(categories) {
    for (const Area& area : layout.building().areas) areas_.emplace(area.id, &area);
    for (const Connector& connector : layout.building().connectors)
      taken_.insert(packageId(connector.id));
  }

  void add(const Place& place) {
    const Category& category = *matchCategory(place.category).category;
    json::object record = started(place.id, place.names, categories_.use(place.category), category);
    addText(record, "description", descriptionOf(place, layout_.building().language));
    addText(record, "hours", place.hours);
    addText(record, "phone", place.phone);
    addText(record, "website", place.website);
    json::array nodes;
    json::array polygons;
    for (const std::string& id : place.areas) {
      const auto area = areas_.find(id);
      if (area == areas_.end() || !isTappable(area->second->kind)) continue;
      for (const Node* node : nodes_.of(NodeKind::inside, id))
        nodes.push_back(nodeReference(layout_, *node));
      for (const Node* node : nodes_.doorsOf(*area->second))
        nodes.push_back(nodeReference(layout_, *node));
      polygons.push_back(
          json::object{{"id", packageId(id)}, {"map", layout_.mapAt(area->second->level)}});
    }
    for (const Node* node : nodes_.of(NodeKind::spot, place.id))
      nodes.push_back(nodeReference(layout_, *node));
    if (nodes.empty() && polygons.empty()) return;  // nothing would show it
    record["nodes"] = std::move(nodes);
    record["polygons"] = std::move(polygons);
    records.add(std::move(record));
  }

  // Entrances and emergency exits that the source has are places too: routes begin and end there.
  void add(const Door& door) {
    const auto nodes = nodes_.of(NodeKind::door, door.id);
    if (nodes.empty()) return;
    const Category& category =
        categoryWithId(door.kind == DoorKind::emergency ? "emergency-exits" : "entrances");
    const Names names = door.names.name.empty()
                            ? generatedName(category.id, layout_.building().language)
                            : door.names;
    json::object record = started(door.id, names, categories_.useId(category.id), category);
    json::array references;
    for (const Node* node : nodes) references.push_back(nodeReference(layout_, *node));
    record["nodes"] = std::move(references);
    record["polygons"] = json::array();
    records.add(std::move(record));
  }

  package::RecordLines records;

 private:
  json::object started(const std::string& id, const Names& names, const std::string& categoryId,
                       const Category& category) {
    std::string own = packageId(id);
    while (!taken_.insert(own).second) own += "-2";
    json::object record = namedRecord(own, names);
    record["type"] = text(category.type);
    record["categories"] = json::array{text(categoryId)};
    if (const json::object picture = pictureOf(category); !picture.empty())
      record["picture"] = picture;
    return record;
  }

  const PackageLayout& layout_;
  const NodeLookup& nodes_;
  UsedCategories& categories_;
  std::map<std::string, const Area*> areas_;
  std::set<std::string> taken_;
};

}  // namespace

json::object namedRecord(const std::string& id, const Names& names) {
  json::object record = {{"id", id}, {"name", names.name}};
  if (!names.byLanguage.empty()) {
    json::object languages;
    for (const auto& [language, name] : names.byLanguage) languages[language] = name;
    record["names"] = std::move(languages);
  }
  if (names.generated) record["nameGenerated"] = true;
  return record;
}

NodeLookup::NodeLookup(const Building& building) {
  const Network& network = building.network;
  std::unordered_set<std::string_view> ofPlaces;
  for (const Place& place : building.places)
    ofPlaces.insert(place.areas.begin(), place.areas.end());
  written_.reserve(network.nodes.size());
  for (const Node& node : network.nodes)
    written_.push_back(node.kind == NodeKind::inside
                           ? ofPlaces.contains(node.of)
                           : node.kind != NodeKind::way && node.kind != NodeKind::door);
  for (const Edge& edge : network.edges) written_[edge.from] = written_[edge.to] = true;
  for (std::size_t i = 0; i < network.nodes.size(); ++i) {
    const Node& node = network.nodes[i];
    if (written_[i] && node.kind != NodeKind::way) nodes_[{node.kind, node.of}].push_back(&node);
  }
  for (const Door& door : building.doors)
    for (const std::string& area : door.areas) doors_[area].push_back(&door);
}

std::vector<const Node*> NodeLookup::of(NodeKind kind, const std::string& owner) const {
  const auto found = nodes_.find({kind, owner});
  return found == nodes_.end() ? std::vector<const Node*>() : found->second;
}

std::vector<const Node*> NodeLookup::doorsOf(const Area& area) const {
  std::vector<const Node*> nodes;
  const auto doors = doors_.find(area.id);
  if (doors == doors_.end()) return nodes;
  std::set<const Node*> taken;
  for (const Door* door : doors->second)
    for (const Node* node : of(NodeKind::door, door->id))
      if (node->level == area.level && taken.insert(node).second) nodes.push_back(node);
  return nodes;
}

std::string UsedCategories::useId(std::string_view category) {
  used_.emplace(category);
  return fmt::format("cat-{}", category);
}

std::string UsedCategories::use(const std::string& value) {
  const CategoryMatch match = matchCategory(value);
  std::string parent = useId(match.category->id);
  if (match.unknown.empty()) return parent;
  std::string id = fmt::format("{}-{}", parent, match.unknown);
  std::replace(id.begin(), id.end(), ' ', '-');
  id = packageId(id);
  unknown_.emplace(id, std::pair(parent, match.unknown));
  return id;
}

json::array UsedCategories::records(const std::string& language) const {
  std::set<std::string> needed = used_;
  for (const std::string& id : used_)
    for (const Category* category = &categoryWithId(id); !category->parent.empty();
         category = &categoryWithId(category->parent))
      needed.emplace(category->parent);
  json::array records;
  for (const Category& category : allCategories()) {
    if (!needed.contains(std::string(category.id))) continue;
    Names names;
    names.name = std::string(category.name(language));
    for (std::size_t i = 0; i < categoryLanguages.size(); ++i)
      names.byLanguage.emplace(categoryLanguages[i], category.names[i]);
    json::object record = namedRecord(fmt::format("cat-{}", category.id), names);
    if (tellsLittle(category)) record["general"] = true;
    if (!category.parent.empty())
      record["parents"] = json::array{text(fmt::format("cat-{}", category.parent))};
    records.push_back(std::move(record));
  }
  for (const auto& [id, entry] : unknown_)
    records.push_back(json::object{
        {"id", id}, {"name", entry.second}, {"parents", json::array{text(entry.first)}}});
  return records;
}

std::string polygonRecords(const PackageLayout& layout, const NodeLookup& nodes) {
  package::RecordLines records;
  for (const Area& area : layout.building().areas) {
    if (!isTappable(area.kind)) continue;
    json::array entrances;
    for (const Node* node : nodes.doorsOf(area))
      entrances.push_back(json::object{{"id", packageId(node->id)}});
    records.add(json::object{{"id", packageId(area.id)},
                             {"map", layout.mapAt(area.level)},
                             {"entrances", std::move(entrances)}});
  }
  return records.finish();
}

std::string locationRecords(const PackageLayout& layout, const NodeLookup& nodes,
                            UsedCategories& categories) {
  Locations locations(layout, nodes, categories);
  std::set<std::string> sources;
  for (const Place& place : layout.building().places) {
    locations.add(place);
    sources.insert(place.source);
  }
  for (const Door& door : layout.building().doors)
    if ((door.kind == DoorKind::entrance || door.kind == DoorKind::emergency) && !door.guessed &&
        !sources.contains(door.source))
      locations.add(door);
  return locations.records.finish();
}

}  // namespace orivanta::importer
