// Finds the spaces around positions.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Stops finding anything when it has taken too long, so that a hostile source cannot stop the
/// import.
class SpaceFinder {
 public:
  /// For the areas that there are now. The vector may grow later.
  explicit SpaceFinder(const std::vector<Area>& areas);

  /// The index of the first area that contains the spot and for which `fits` returns true.
  std::optional<std::size_t> find(const Spot& spot, const std::function<bool(const Area&)>& fits);

 private:
  struct Box {
    Point least;
    Point greatest;
  };

  bool contains(const Area& area, Point position);

  const std::vector<Area>& areas_;
  std::vector<Box> boxes_;
  std::size_t effort_ = 200'000'000;
};

/// Makes halls of the spaces that may be one and that the source's network leads through.
void findHalls(Building& building, SpaceFinder& finder);

}  // namespace orivanta::importer
