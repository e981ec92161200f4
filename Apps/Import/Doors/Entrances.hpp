// Entrances of rooms on the ground floor that nothing else joins.
#pragma once

#include <optional>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// Keeps references to the building and to the areas of the storey without obstacles.
class Entrances {
 public:
  Entrances(const Building& building, double level, const AreaIndex& contents)
      : building_(building), level_(level), contents_(contents) {}

  /// An entrance in the longest wall behind which nothing is drawn: one within the outline of the
  /// storey, which faces a passage, rather than one at the outline.
  std::optional<Door> of(const Area& room);

 private:
  const Building& building_;
  double level_;
  const AreaIndex& contents_;
  std::optional<Space> passages_;  // what lies within the outer walls, when it is needed
};

}  // namespace orivanta::importer
