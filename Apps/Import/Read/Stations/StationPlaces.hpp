// Places of a station network, and their names.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"

namespace orivanta::importer {

/// The name of a feature, unless it says that there is none.
Names namesOf(const StationFeature& feature);

/// Adds places to a building, which must outlive it.
class StationPlaces {
 public:
  explicit StationPlaces(Building& building) : building_(building) {}

  void add(Place place);

  /// Makes a named gate or entrance a place, unless a facility with its name is there already.
  void addOf(const Door& door, const char* code);

 private:
  Building& building_;
  std::unordered_map<std::string, std::vector<std::size_t>> byName_;
};

}  // namespace orivanta::importer
