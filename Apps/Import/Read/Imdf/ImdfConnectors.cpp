// Reads relationships, and amenities that are connectors.
#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Read/Imdf/ImdfFindings.hpp"
#include "Apps/Import/Read/Imdf/ImdfImport.hpp"
#include "Apps/Import/Read/Imdf/ImdfTypes.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

std::optional<ConnectorKind> kindOf(std::string_view category) {
  const AreaKind kind = kindOfUnit(baseOf(category));
  if (!isConnector(kind)) return {};
  return connectorKindOf(kind);
}

// What several features say about the same connector is joined by keys that they share.
class Groups {
 public:
  // Joins the hint with earlier ones of the same kind that have one of the keys.
  void add(ConnectorHint hint, const std::vector<std::string>& keys) {
    const std::size_t index = hints_.size();
    hints_.push_back(std::move(hint));
    for (const std::string& key : keys) {
      const auto owner =
          owners_.emplace(std::to_string(static_cast<int>(hints_[index].kind)) + key, index).first;
      joints_.emplace_back(owner->second, index);
    }
  }

  // One hint for each group, named by its first feature.
  std::vector<ConnectorHint> joined() {
    DisjointSets sets(hints_.size());
    for (const auto& [one, other] : joints_) sets.join(one, other);
    const auto groups = sets.all();
    std::vector<ConnectorHint> result;
    result.reserve(groups.size());
    for (const std::vector<std::size_t>& group : groups) {
      result.push_back(std::move(hints_[group.front()]));
      for (std::size_t i = 1; i < group.size(); ++i) join(result.back(), hints_[group[i]]);
    }
    return result;
  }

 private:
  static void join(ConnectorHint& group, const ConnectorHint& hint) {
    const auto append = [](auto& to, const auto& from) {
      to.insert(to.end(), from.begin(), from.end());
    };
    append(group.spots, hint.spots);
    append(group.areas, hint.areas);
    append(group.doors, hint.doors);
    if (group.names.name.empty()) group.names = hint.names;
    if (group.wheelchair == Wheelchair::unknown) group.wheelchair = hint.wheelchair;
    if (group.direction == Direction::unknown)
      group.direction = hint.direction;
    else if (hint.direction != Direction::unknown && hint.direction != group.direction)
      group.direction = Direction::both;
  }

  std::vector<ConnectorHint> hints_;
  std::vector<std::pair<std::size_t, std::size_t>> joints_;
  std::unordered_map<std::string, std::size_t> owners_;
};

void removeRepeated(std::vector<std::string>& texts) {
  std::set<std::string> seen;
  texts.erase(std::remove_if(texts.begin(), texts.end(),
                             [&](const std::string& text) { return !seen.insert(text).second; }),
              texts.end());
}

class ConnectorReader {
 public:
  explicit ConnectorReader(ImdfImport& import) : import_(import) {}

  void read() {
    for (const ImdfFeature* each : import_.archive.ofType("relationship")) readRelationship(*each);
    for (const ImdfFeature* each : import_.archive.ofType("amenity")) readAmenity(*each);
    for (ConnectorHint& hint : groups_.joined()) addHint(std::move(hint));
  }

 private:
  void readRelationship(const ImdfFeature& relationship) {
    if (baseOf(relationship.category()) == "traversal") return readTraversal(relationship);
    const std::optional<ConnectorKind> kind = kindOf(relationship.category());
    if (!kind) return;
    ConnectorHint hint;
    hint.id = relationship.id;
    hint.source = relationship.id;
    hint.kind = *kind;
    std::vector<double> levels;
    for (const std::string& id : imdfMembers(relationship)) addMember(id, hint, levels);
    hint.direction = directionOf(relationship, levels);
    addMissingSpots(levels, hint);
    if (hint.areas.empty() && hint.spots.size() < 2) return reportUnclear(relationship);
    std::vector<std::string> keys;
    keys.reserve(hint.areas.size());
    for (const std::string& area : hint.areas) keys.push_back("area " + area);
    groups_.add(std::move(hint), keys);
  }

  // Notes the level of a member, and what it is to a connector.
  void addMember(const std::string& id, ConnectorHint& hint, std::vector<double>& levels) {
    if (const Area* area = import_.area(id)) {
      levels.push_back(area->level);
      const std::optional<ConnectorKind> kind =
          area->category.starts_with("unit:") ? kindOf(area->category.substr(5)) : std::nullopt;
      if (kind == hint.kind) hint.areas.push_back(id);
    }
    if (const auto found = import_.doors.find(id); found != import_.doors.end()) {
      const Door& door = import_.building.doors[found->second];
      levels.push_back(door.level);
      hint.doors.push_back(id);
      hint.spots.push_back({door.level, door.position});
    }
  }

  // A connector may be drawn on one level only, and joined with what it leads to on the others.
  void addMissingSpots(const std::vector<double>& levels, ConnectorHint& hint) const {
    if (hint.areas.empty()) return;
    std::set<double> known;
    for (const std::string& id : hint.areas) known.insert(import_.area(id)->level);
    for (const Spot& spot : hint.spots) known.insert(spot.level);
    const Point middle = imdfMiddle(import_.area(hint.areas.front())->shape.front());
    for (const double level : levels)
      if (known.insert(level).second) hint.spots.push_back({level, middle});
  }

  static Direction directionOf(const ImdfFeature& relationship, const std::vector<double>& levels) {
    const std::string direction = relationship.text("direction");
    if (direction == "undirected") return Direction::both;
    if (direction != "directed" || levels.empty()) return Direction::unknown;
    return levels.front() <= levels.back() ? Direction::forward : Direction::backward;
  }

  void reportUnclear(const ImdfFeature& relationship) {
    import_.findings.add(
        findingFor(import_.archive, relationship,
                   {Severity::warning, "connector-unclear", "intermediary",
                    "The relationship names neither a unit of its category nor two openings.",
                    "The connector is found by the shapes of units, if at all.",
                    "Name the unit of the " + relationship.category() + " as intermediary."}));
  }

  // From one unit through an opening into another.
  void readTraversal(const ImdfFeature& relationship) {
    std::vector<std::string> areas;
    std::vector<std::string> doors;
    for (const std::string& id : imdfMembers(relationship)) {
      if (import_.area(id) != nullptr) areas.push_back(id);
      if (import_.doors.contains(id)) doors.push_back(id);
    }
    if (doors.size() != 1 || areas.size() != 2) return;
    Door& door = import_.building.doors[import_.doors.at(doors.front())];
    if (door.areas.empty()) door.areas = areas;
    if (relationship.text("direction") != "directed") return;
    import_.findings.add(findingFor(import_.archive, relationship,
                                    {Severity::info, "one-way-door", "direction",
                                     "People may go through the opening in one direction only.",
                                     "Routes use it in both directions.", ""}));
  }

  void readAmenity(const ImdfFeature& amenity) {
    const std::optional<ConnectorKind> kind = kindOf(amenity.category());
    if (!kind || amenity.geometry.points.empty()) return;
    ConnectorHint hint;
    hint.id = amenity.id;
    hint.source = amenity.id;
    hint.kind = *kind;
    hint.names = import_.archive.names(amenity.properties, "name");
    hint.wheelchair = imdfWheelchair(amenity);
    std::set<double> levels;
    for (const std::string& id : memberTexts(amenity.properties, "unit_ids")) {
      std::vector<double> members;
      addMember(id, hint, members);
      levels.insert(members.begin(), members.end());
    }
    for (const double level : levels)
      hint.spots.push_back({level, amenity.geometry.points.front()});
    std::vector<std::string> keys;
    keys.reserve(hint.areas.size());
    for (const std::string& area : hint.areas) keys.push_back("area " + area);
    if (const std::string shared = amenity.text("correlation_id"); !shared.empty())
      keys.push_back("correlation " + shared);
    groups_.add(std::move(hint), keys);
  }

  // A hint that says nothing about several storeys only completes the areas.
  void addHint(ConnectorHint hint) {
    removeRepeated(hint.areas);
    removeRepeated(hint.doors);
    std::set<double> levels;
    for (const std::string& id : hint.areas) {
      Area& area = *import_.area(id);
      levels.insert(area.level);
      if (area.names.name.empty()) area.names = hint.names;
      if (area.wheelchair == Wheelchair::unknown) area.wheelchair = hint.wheelchair;
      if (area.direction == Direction::unknown) area.direction = hint.direction;
    }
    // Where there is an area, its shape tells better where it is entered.
    hint.spots.erase(std::remove_if(hint.spots.begin(), hint.spots.end(),
                                    [&](const Spot& spot) { return levels.contains(spot.level); }),
                     hint.spots.end());
    std::stable_sort(
        hint.spots.begin(), hint.spots.end(),
        [](const Spot& first, const Spot& second) { return first.level < second.level; });
    hint.spots.erase(std::unique(hint.spots.begin(), hint.spots.end(),
                                 [](const Spot& first, const Spot& second) {
                                   return first.level == second.level &&
                                          first.position.x == second.position.x &&
                                          first.position.y == second.position.y;
                                 }),
                     hint.spots.end());
    for (const Spot& spot : hint.spots) levels.insert(spot.level);
    if (hint.names.name.empty())
      for (const std::string& id : hint.areas)
        if (hint.names.name.empty()) hint.names = import_.area(id)->names;
    if (levels.size() > 1) import_.building.connectorHints.push_back(std::move(hint));
  }

  ImdfImport& import_;
  Groups groups_;
};

}  // namespace

void readImdfConnectors(ImdfImport& import) { ConnectorReader(import).read(); }

}  // namespace orivanta::importer
