// The rooms of a storey: their inner nodes, and the ways in them from door to door.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Skeleton.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

/// Routes do not cross rooms unless the way round is this many times as long.
constexpr double crossingWeight = 8.0;

/// Refers to the areas of a building.
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

  /// Joins a node with the inner node of a room, round the corners of the room. Returns false if
  /// there is no way within the room.
  bool join(Draft& draft, std::uint32_t node, const Area& room);

 private:
  struct Room {
    const Area* area = nullptr;
    std::uint32_t inside = 0;
    bool hasInside = false;
    Shape shape;  // without smaller rooms in it; made when it is needed
    std::unique_ptr<Space> space;
    Skeleton skeleton;
    std::unique_ptr<Ways> ways;
  };
  void makeShape(Room& room);

  AreaIndex index_;
  std::vector<Room> rooms_;
  std::map<std::string, std::size_t> byId_;
};

}  // namespace orivanta::importer
