// What instructions tell about the places of a venue: entrances, usable names, categories, scale.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Network/GuideData.hpp"

namespace orivanta::guidance {

/// Made once per loaded venue. Immutable; not affected by the next load. Thread-safe.
class Surroundings {
 public:
  /// Reads a loaded venue. `data` must be made of the venue and outlive the object.
  Surroundings(const Venue& venue, const GuideData& data);

  /// Returns the length of a unit in meters. Without `unitsPerMetre`, a unit counts as a meter.
  double metersPerUnit() const { return metersPerUnit_; }

  /// Returns the network, whose nodes are those of the venue.
  const GuideNetwork& network() const { return data_.network; }

  /// Returns the places whose entrance a node is. The entrances of a place are those of its
  /// polygons, or else its nodes.
  std::span<const std::shared_ptr<Location>> placesAt(const Node& node) const;

  /// Returns whether a node is an entrance of a place.
  bool isEntranceOf(const Node& node, const Location& place) const;

  /// Returns whether a node is an entrance of a room.
  bool isDoor(const Node& node) const { return doors_.contains(&node); }

  /// Returns the rooms in which a node lies, without those that have no name to be spoken. None if
  /// the node is a door.
  std::span<const std::shared_ptr<Location>> roomsAt(const Node& node) const;

  /// Returns whether a place can be told by its name: the name is not empty, not generated, and no
  /// other place has it.
  bool hasOwnName(const Location& place) const { return named_.contains(&place); }

  /// Returns the name of a place, or what the sign of a connector shows. Empty if a converter
  /// invented the name.
  std::string spokenName(const Location& place) const;

  /// Returns the first category of a place if no other place of that category has an entrance
  /// within 30 m of this entrance on the same floor, and the category is not a general one
  /// (`"general": true`). Returns null otherwise.
  std::shared_ptr<Category> soleKind(const Location& place, const Node& entrance) const;

 private:
  // An entrance of a place, in the list of its category.
  struct KindEntry {
    const Category* category;
    const Map* map;
    double x;
    double y;
    const Location* place;

    friend bool operator<(const KindEntry& left, const KindEntry& right) {
      return std::tie(left.category, left.map, left.x) <
             std::tie(right.category, right.map, right.x);
    }
  };

  void addEntrances(const std::shared_ptr<Location>& place);
  void addEntrance(const std::shared_ptr<Location>& place, const std::shared_ptr<Node>& node);
  void addInside(const std::shared_ptr<Location>& place);
  void findNames();

  const GuideData& data_;
  double metersPerUnit_;
  std::vector<std::shared_ptr<Node>> nodes_;          // keeps the addresses valid
  std::vector<std::shared_ptr<Location>> locations_;  // likewise
  std::vector<std::shared_ptr<Vortex>> connectors_;   // likewise
  std::unordered_map<const Node*, std::vector<std::shared_ptr<Location>>> places_;
  std::unordered_map<const Node*, std::vector<std::shared_ptr<Location>>> rooms_;
  std::unordered_set<const Node*> doors_;
  std::unordered_set<const Location*> named_;
  std::unordered_map<const Location*, std::string> signs_;  // of the connectors
  std::vector<KindEntry> kinds_;                            // sorted by category, map and x
};

}  // namespace orivanta::guidance
