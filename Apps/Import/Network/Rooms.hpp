// The rooms of a storey: their inner nodes, and the ways in them from door to door.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Routes do not cross rooms unless the way round is this many times as long.
constexpr double crossingWeight = 8.0;

/// The same for what only staff may enter: routes lead there only if there is no other way.
constexpr double staffWeight = 1000.0;

/// Refers to the areas of a building. Rooms that nobody may enter are left out.
class Rooms {
 public:
  Rooms(const Building& building, double level);
  ~Rooms();

  /// The room with an identifier, or the smallest room at a point; null if there is none.
  const Area* find(const std::string& id) const;
  const Area* at(Point point) const { return index_.smallestAt(point); }

  /// The smallest room within a distance of a point, or null.
  const Area* near(Point point, double within) const;

  /// Makes `node` the inner node of a room. Returns false if the room has one already.
  bool setInside(const Area& room, std::uint32_t node);

  /// Adds inner nodes of the rooms that have none.
  void addInsides(Draft& draft);

  /// Joins a node with the inner node of a room, round the corners of the room. Lines are added by
  /// `finish`.
  void join(std::uint32_t node, const Area& room);

  /// Adds the lines in the rooms: straight ones to the inner node if all nodes see it, otherwise a
  /// network of the room. Nodes from which no way leads to the inner node are not joined.
  void finish(Draft& draft);

 private:
  struct Room {
    const Area* area = nullptr;
    std::uint32_t inside = 0;
    bool hasInside = false;
    std::vector<std::uint32_t> joined;
  };
  void connect(const Room& room, Draft& draft) const;

  AreaIndex index_;     // of the rooms
  AreaIndex contents_;  // of everything that can lie in rooms
  std::vector<Room> rooms_;
  std::map<std::string, std::size_t> byId_;
};

}  // namespace orivanta::importer
