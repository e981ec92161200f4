#include "Apps/Web/Map/MapFloors.hpp"

#include <utility>

#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

namespace {

const char* wordOf(FloorState state) {
  switch (state) {
    case FloorState::waiting:
      return "waiting";
    case FloorState::fetching:
      return "fetching";
    case FloorState::reading:
      return "reading";
    case FloorState::ready:
      return "ready";
    case FloorState::withoutModel:
      return "withoutModel";
    case FloorState::failed:
      break;
  }
  return "failed";
}

}  // namespace

MapFloors::MapFloors(std::shared_ptr<MapView> mapView, const MapEvents& events,
                     std::function<int(const std::shared_ptr<Map>&)> indexOf)
    : mapView_(std::move(mapView)), events_(events), indexOf_(std::move(indexOf)) {}

// The handlers refer to this object; they are not called after `cancel`.
MapFloors::~MapFloors() {
  if (load_) load_->cancel();
  for (const auto& floor : *mapView_->venue->maps) floor->mapObject = nullptr;
}

void MapFloors::load(const std::shared_ptr<Map>& first) {
  FloorLoadHandlers handlers;
  handlers.floorChanged = [this](const FloorProgress& floor) { floorChanged(floor); };
  handlers.ended = [this](const std::vector<FloorProgress>& floors) { ended(floors); };
  load_ = mapView_->loadFloors(std::move(handlers), first);
}

void MapFloors::floorChanged(const FloorProgress& floor) {
  const int index = indexOf_(floor.map);
  events_.report("load", {{"floor", index},
                          {"state", wordOf(floor.state)},
                          {"filesDone", floor.filesDone},
                          {"fileCount", floor.fileCount}});
  if (!floor.problem.empty())
    events_.report("problem", {{"kind", "floor"}, {"floor", index}, {"text", floor.problem}});
  const bool isLost = floor.state == FloorState::failed || floor.state == FloorState::withoutModel;
  if (isLost && othersNeeded) othersNeeded();
  if (isLost && floor.map == awaited_) {
    awaited_ = nullptr;
    then_ = nullptr;
  }
  if (isLoaded_ && floor.map == awaited_ && floor.map->mapObject) show(floor.map);
  check();
}

void MapFloors::ended(const std::vector<FloorProgress>& floors) {
  if (isLoaded_) return;
  std::string text;
  for (const FloorProgress& floor : floors)
    if (text.empty()) text = floor.problem;
  if (text.empty()) text = "the venue has no floor with a model";
  events_.report("problem", {{"kind", "noFloor"}, {"floor", nullptr}, {"text", text}});
}

// A repeated load has started the scene anew with any floor.
void MapFloors::firstFloorLoaded() {
  if (std::exchange(isLoaded_, true) && shown_ && shown_->mapObject && !awaited_)
    mapView_->changeMap(shown_);
  check();
  if (awaited_) show(awaited_);
}

void MapFloors::show(const std::shared_ptr<Map>& floor) {
  const auto then = floor == awaited_ ? then_ : nullptr;
  awaited_ = isLoaded_ && floor->mapObject ? nullptr : floor;
  if (awaited_) {
    if (othersNeeded) othersNeeded();
    return;
  }
  then_ = nullptr;
  if (floor != mapView_->currentMap()) {
    mapView_->changeMap(floor);
    mapView_->camera().setPose(mapView_->camera().pose());  // applies the limits of this floor
    check();
  }
  if (then) then();
}

bool MapFloors::whenShown(std::function<void()> then) {
  if (awaited_) then_ = std::move(then);
  return awaited_ != nullptr;
}

void MapFloors::check() {
  const auto& floor = mapView_->currentMap();
  if (!floor || floor == shown_) return;
  shown_ = floor;
  if (changed) changed();
  events_.report("floor", {{"floor", indexOf_(floor)}});
}

}  // namespace orivanta::web
