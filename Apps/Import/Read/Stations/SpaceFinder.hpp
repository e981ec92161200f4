// Finds the spaces around positions.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"

namespace orivanta::importer {

/// Stops finding anything when it has taken too long, so that a hostile source cannot stop the
/// import.
class SpaceFinder {
 public:
  /// For the first `spaces` areas of the building, which must keep their addresses.
  SpaceFinder(const Building& building, std::size_t spaces)
      : building_(building), spaces_(spaces) {}

  /// The index of the first area that contains the spot and for which `fits` returns true.
  std::optional<std::size_t> find(const Spot& spot, const std::function<bool(const Area&)>& fits);

  /// Whether it has taken too long.
  bool isExhausted() const { return isExhausted_; }

 private:
  const AreaIndex* indexOf(double level);
  bool contains(const Area& area, Point position);
  bool spend(std::size_t effort);

  const Building& building_;
  std::size_t spaces_;
  std::map<double, AreaIndex> indices_;  // by level
  std::size_t effortLeft_ = 200'000'000;
  bool isExhausted_ = false;
};

/// Makes halls of the spaces that may be one and that the source's network leads through.
void findHalls(Building& building, SpaceFinder& finder);

}  // namespace orivanta::importer
