#include "Apps/Import/Doors/Entrances.hpp"

#include <utility>

#include "Apps/Import/Doors/WallContact.hpp"
#include "Apps/Import/Geometry/OpenShape.hpp"

namespace orivanta::importer {

namespace {

// The outline of a storey without its outer walls and what is in front of them.
Shape innerOutline(const Building& building, double level) {
  constexpr double walls = 1.5;
  Shape outline;
  for (const Storey& storey : building.storeys)
    if (storey.ordinal == level) outline = joined(std::move(outline), storey.footprint);
  return withMargin(united(outline), -walls);
}

}  // namespace

std::optional<Door> Entrances::of(const Area& room) {
  if (!passages_) passages_.emplace(innerOutline(building_, level_));
  const auto isOutside = [this](Point point) { return contents_.smallestAt(point) == nullptr; };
  const Shape shape = openShape(room, contents_);
  auto contact = longestContact(shape, [&](Point point) {
    return !passages_->empty() && passages_->contains(point) && isOutside(point);
  });
  if (!contact) contact = longestContact(shape, isOutside);
  if (!contact) return {};
  Door door = guessedDoor(room, *contact);
  door.kind = DoorKind::entrance;
  return door;
}

}  // namespace orivanta::importer
