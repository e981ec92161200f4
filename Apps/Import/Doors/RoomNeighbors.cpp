#include "Apps/Import/Doors/RoomNeighbors.hpp"

#include "Apps/Import/Geometry/OpenShape.hpp"

namespace orivanta::importer {

const Space& RoomNeighbors::openSpaceOf(const Area& room) {
  std::unique_ptr<const Space>& space = openSpaces_[&room];
  if (!space) space = std::make_unique<const Space>(openShape(room, contents_));
  return *space;
}

const std::vector<RoomNeighbors::Neighbor>& RoomNeighbors::of(const Area& room) {
  const auto [entry, isNew] = neighbors_.try_emplace(&room);
  if (!isNew) return entry->second;
  constexpr std::size_t mostTried = 200;  // more rooms beside one room are damage
  const Shape shape = openShape(room, contents_);
  std::vector<const Area*> near = rooms_.near(room.shape, wallDepths.back());
  if (near.size() > mostTried) near.resize(mostTried);
  for (const Area* other : near) {
    if (other == &room) continue;
    const Space& open = openSpaceOf(*other);
    if (const auto contact =
            longestContact(shape, [&open](Point point) { return open.contains(point); }))
      entry->second.push_back({other->id, *contact});
  }
  return entry->second;
}

}  // namespace orivanta::importer
