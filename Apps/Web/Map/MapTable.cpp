#include "Apps/Web/Map/MapTable.hpp"

#include <algorithm>

namespace orivanta::web {

MapTable& MapTable::shared() {
  static auto& instance = *new MapTable;
  return instance;
}

int MapTable::add(LoadedVenue& venue, int canvas) {
  auto map = MapHost::make(last_ + 1, venue, canvas);
  if (!map) return 0;
  maps_.emplace(++last_, std::move(*map));
  return last_;
}

bool MapTable::shows(const LoadedVenue& venue) const {
  return std::any_of(maps_.begin(), maps_.end(),
                     [&](const auto& each) { return &each.second->venue() == &venue; });
}

std::shared_ptr<MapHost> MapTable::find(int number) const {
  const auto found = maps_.find(number);
  return found == maps_.end() ? nullptr : found->second;
}

void MapTable::remove(int number) { maps_.erase(number); }

void MapTable::removeMapOf(const LoadedVenue& venue) {
  std::erase_if(maps_, [&](const auto& each) { return &each.second->venue() == &venue; });
}

void MapTable::requestFrames() const {
  for (const auto& [number, map] : maps_) map->requestFrame();
}

}  // namespace orivanta::web
