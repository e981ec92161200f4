#include "Source/Guidance/Steps/RoomsOnWay.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "Source/Location.hpp"

namespace orivanta::guidance {

namespace {

bool isStop(const Visit* visit, const std::shared_ptr<Location>& place) {
  return visit != nullptr && visit->location == place;
}

// Looks for the doors of one room around a point of the line.
class Doors {
 public:
  Doors(const WalkLine& line, const Surroundings& surroundings, std::shared_ptr<Location> place)
      : line_(line), surroundings_(surroundings), place_(std::move(place)) {}

  // Returns the room between the doors around the first node inside. Returns nothing for later
  // nodes, so that all calls together take linear time.
  std::optional<RoomOnWay> around(std::size_t inside) const {
    const auto first = doorFrom(inside, false);
    const auto last = doorFrom(inside, true);
    if (!first || !last || line_.node(*first) == line_.node(*last)) return std::nullopt;
    if (!isOwn(*first) && !isOwn(*last)) return std::nullopt;
    return RoomOnWay{place_, *first, *last};
  }

 private:
  bool isOwn(std::size_t index) const {
    return surroundings_.isEntranceOf(*line_.node(index), *place_);
  }

  bool isInside(std::size_t index) const {
    const auto rooms = surroundings_.roomsAt(*line_.node(index));
    return std::find(rooms.begin(), rooms.end(), place_) != rooms.end();
  }

  // Nodes of no room may lie between a node inside and the room's own entrance.
  std::optional<std::size_t> doorFrom(std::size_t inside, bool forward) const {
    for (std::size_t i = inside; forward ? i + 1 < line_.size() : i > 0;) {
      const bool isNext = isInside(i);
      i = forward ? i + 1 : i - 1;
      if (isOwn(i)) return i;
      if (surroundings_.isDoor(*line_.node(i))) return isNext ? std::optional(i) : std::nullopt;
      const bool isRoom = !surroundings_.roomsAt(*line_.node(i)).empty();
      if (isRoom && !(forward && isInside(i))) return std::nullopt;
    }
    return std::nullopt;
  }

  const WalkLine& line_;
  const Surroundings& surroundings_;
  const std::shared_ptr<Location> place_;
};

}  // namespace

std::vector<RoomOnWay> roomsOnWay(const WalkLine& line, const Section& section,
                                  const Surroundings& surroundings) {
  std::vector<RoomOnWay> rooms;
  for (std::size_t i = 0; i < line.size();) {
    std::optional<RoomOnWay> room;
    for (const auto& place : surroundings.roomsAt(*line.node(i))) {
      if (isStop(section.departure, place) || isStop(section.arrival, place)) continue;
      room = Doors(line, surroundings, place).around(i);
      if (room) break;
    }
    i = room ? room->last : i + 1;
    if (!room) continue;
    if (!rooms.empty() && rooms.back().place == room->place)
      rooms.back().last = room->last;  // it touches another entrance on the way
    else
      rooms.push_back(*std::move(room));
  }
  return rooms;
}

}  // namespace orivanta::guidance
