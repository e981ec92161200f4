#include "Source/Guidance/Steps/RoomsOnWay.hpp"

#include <optional>

#include "Source/Location.hpp"

namespace orivanta::guidance {

namespace {

bool isStop(const Visit* visit, const std::shared_ptr<Location>& place) {
  return visit != nullptr && visit->location == place;
}

// Returns the point where a walk that enters a room at a point of the line leaves it.
std::optional<std::size_t> exitOf(const Location& place, const WalkLine& line, std::size_t first,
                                  const Surroundings& surroundings) {
  bool wasInside = false;
  for (std::size_t i = first + 1; i < line.size(); ++i) {
    const Node& node = *line.node(i);
    if (surroundings.isEntranceOf(node, place)) {
      const bool isOther = &node != line.node(first).get();
      return wasInside && isOther ? std::optional(i) : std::nullopt;
    }
    if (!surroundings.belongsTo(node, place)) return std::nullopt;
    wasInside = wasInside || surroundings.isInside(node);
  }
  return std::nullopt;
}

}  // namespace

std::vector<RoomOnWay> roomsOnWay(const WalkLine& line, const Section& section,
                                  const Surroundings& surroundings) {
  std::vector<RoomOnWay> rooms;
  for (std::size_t first = 0; first < line.size();) {
    RoomOnWay longest;
    for (const auto& place : surroundings.placesAt(*line.node(first))) {
      if (isStop(section.departure, place) || isStop(section.arrival, place)) continue;
      if (surroundings.spokenName(*place).empty()) continue;
      const auto last = exitOf(*place, line, first, surroundings);
      if (last && *last > longest.last) longest = {place, first, *last};
    }
    first = longest.place ? longest.last : first + 1;
    if (!longest.place) continue;
    if (!rooms.empty() && rooms.back().place == longest.place)
      rooms.back().last = longest.last;  // it touches another entrance on the way
    else
      rooms.push_back(std::move(longest));
  }
  return rooms;
}

}  // namespace orivanta::guidance
