// The floors of a map: loading, waiting for one, changing it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Web/LoadedVenue.hpp"
#include "Apps/Web/Map/MapEvents.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::web {

/// Loads the floors of a venue into a map view and shows one of them. Reports "load", "floor" and
/// "problem".
class MapFloors {
 public:
  /// `indexOf` returns the index of a floor for the page.
  MapFloors(std::shared_ptr<MapView> mapView, const MapEvents& events,
            std::function<int(const std::shared_ptr<Map>&)> indexOf);

  /// Cancels the load, and releases the models of the floors.
  ~MapFloors();
  MapFloors(const MapFloors&) = delete;
  MapFloors& operator=(const MapFloors&) = delete;

  /// Called when another floor is shown, before it is reported.
  std::function<void()> changed;

  /// Called when a floor other than the first one is asked for, or the first one cannot be shown.
  std::function<void()> othersNeeded;

  /// Starts to load all floors, this one first. Also used after a failure.
  void load(const std::shared_ptr<Map>& first);

  /// Shows a floor, or waits for it. The map view shows another one until then.
  void show(const std::shared_ptr<Map>& floor);

  /// Calls a function when the floor that is waited for is shown. Drops it if another floor is
  /// asked for. Returns false, and does not keep the function, if there is no such floor.
  bool whenShown(std::function<void()> then);

  /// To be called when the map view has loaded its first floor, also for a repeated load.
  void firstFloorLoaded();

  /// Reports a change of the floor since the last call. Called after everything that may have
  /// changed it.
  void check();

  /// The floor that is shown as soon as it is ready. Null if there is none.
  const std::shared_ptr<Map>& awaited() const { return awaited_; }

  /// Whether a floor is shown.
  bool isLoaded() const { return isLoaded_; }

 private:
  void floorChanged(const FloorProgress& floor);
  void ended(const std::vector<FloorProgress>& floors);

  const std::shared_ptr<MapView> mapView_;
  const MapEvents events_;
  const std::function<int(const std::shared_ptr<Map>&)> indexOf_;
  std::shared_ptr<FloorLoad> load_;
  std::shared_ptr<Map> awaited_;
  std::function<void()> then_;  // called when that floor is shown; may be empty
  std::shared_ptr<Map> shown_;  // as it was reported
  bool isLoaded_ = false;
};

}  // namespace orivanta::web
