#include "Source/Guidance/Steps/RoomsOnWay.hpp"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "Source/Location.hpp"

namespace orivanta::guidance {

namespace {

using Places = std::unordered_set<const Location*>;

// Looks at the parts of the line between two doors. All calls together take linear time.
class RoomFinder {
 public:
  RoomFinder(const WalkLine& line, const Section& section, const Surroundings& surroundings)
      : line_(line), surroundings_(surroundings) {
    for (const Visit* visit : {section.departure, section.arrival})
      if (visit != nullptr) stops_.insert(visit->location.get());
  }

  bool isDoor(std::size_t index) const { return surroundings_.isDoor(*line_.node(index)); }

  // Returns the place whose room the line crosses between two consecutive doors, or null. Nodes of
  // no room may lie between the room and its own entrance, but not between the room and the
  // entrance of another place.
  std::shared_ptr<Location> roomBetween(std::size_t door, std::size_t next) const {
    std::size_t first = door + 1;
    while (first < next && isOutside(first)) ++first;
    std::size_t last = next - 1;
    while (last > first && isOutside(last)) --last;
    if (first >= next || line_.node(door) == line_.node(next)) return nullptr;
    const auto rooms = inside(first, last);
    const Places entered = entrancesAt(door);
    const Places left = entrancesAt(next);
    for (const auto& place : surroundings_.roomsAt(*line_.node(first))) {
      if (!rooms.contains(place.get()) || stops_.contains(place.get())) continue;
      const bool isEntered = entered.contains(place.get());
      const bool isLeft = left.contains(place.get());
      if ((isEntered || isLeft) && (isEntered || first == door + 1) && (isLeft || last + 1 == next))
        return place;
    }
    return nullptr;
  }

  // Returns whether the walk does not leave the room of a place between two doors: each edge has
  // an end inside, or connects two entrances of the place.
  bool staysInside(const Location& place, std::size_t door, std::size_t next) const {
    for (std::size_t i = door; i < next; ++i)
      if (!isInside(i, place) && !isInside(i + 1, place) &&
          !(isEntrance(i, place) && isEntrance(i + 1, place)))
        return false;
    return true;
  }

 private:
  bool isOutside(std::size_t index) const {
    return surroundings_.roomsAt(*line_.node(index)).empty();
  }

  bool isInside(std::size_t index, const Location& place) const {
    const auto rooms = surroundings_.roomsAt(*line_.node(index));
    return std::any_of(rooms.begin(), rooms.end(),
                       [&](const auto& room) { return room.get() == &place; });
  }

  bool isEntrance(std::size_t index, const Location& place) const {
    return surroundings_.isEntranceOf(*line_.node(index), place);
  }

  // Returns the places in whose rooms all nodes lie that lie in any.
  Places inside(std::size_t first, std::size_t last) const {
    std::unordered_map<const Location*, std::size_t> counts;
    std::size_t nodes = 0;
    for (std::size_t i = first; i <= last; ++i) {
      if (isOutside(i)) continue;
      for (const auto& place : surroundings_.roomsAt(*line_.node(i)))
        if (auto& count = counts[place.get()]; count == nodes) ++count;
      ++nodes;
    }
    Places all;
    for (const auto& [place, count] : counts)
      if (count == nodes) all.insert(place);
    return all;
  }

  Places entrancesAt(std::size_t index) const {
    Places places;
    for (const auto& place : surroundings_.placesAt(*line_.node(index))) places.insert(place.get());
    return places;
  }

  const WalkLine& line_;
  const Surroundings& surroundings_;
  Places stops_;
};

}  // namespace

std::vector<RoomOnWay> roomsOnWay(const WalkLine& line, const Section& section,
                                  const Surroundings& surroundings,
                                  const foundation::CancellationToken& token) {
  const RoomFinder finder(line, section, surroundings);
  std::vector<RoomOnWay> rooms;
  std::optional<std::size_t> door;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (token.isCanceled()) return {};
    if (!finder.isDoor(i)) continue;
    auto place = door ? finder.roomBetween(*door, i) : nullptr;
    const std::size_t first = std::exchange(door, i).value_or(i);
    if (!place) continue;
    if (!rooms.empty() && rooms.back().place == place &&
        finder.staysInside(*place, rooms.back().last, first))
      rooms.back().last = i;
    else
      rooms.push_back({std::move(place), first, i});
  }
  return rooms;
}

}  // namespace orivanta::guidance
