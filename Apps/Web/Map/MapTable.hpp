// The maps that the page shows, by number.
#pragma once

#include <map>
#include <memory>

#include "Apps/Web/Map/MapHost.hpp"

namespace orivanta::web {

/// Owns the maps. One thread.
class MapTable {
 public:
  /// Returns the table of the module. Never destroyed.
  static MapTable& shared();

  /// Makes a map, see `MapHost::make`, and returns its number, which is above 0 and never used
  /// again, or 0 if the browser does not support WebGL 2. A venue has at most one map.
  int add(LoadedVenue& venue, int canvas);

  /// Returns whether there is a map of a venue.
  bool shows(const LoadedVenue& venue) const;

  /// Returns the map with this number, or null.
  std::shared_ptr<MapHost> find(int number) const;

  void remove(int number);

  /// Removes the map of a venue, if there is one.
  void removeMapOf(const LoadedVenue& venue);

  /// Asks the page for frames of the maps that need them.
  void requestFrames() const;

 private:
  std::map<int, std::shared_ptr<MapHost>> maps_;
  int last_ = 0;
};

}  // namespace orivanta::web
