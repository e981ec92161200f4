// What lies around connectors: the space in which people walk, doors and paths.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Import/Connectors/Pairing.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// Of the paths that pass a point, the identifier of one for each storey.
using PathsByLevel = std::map<double, std::string>;

/// The spaces and doors of a building, which must outlive it. Makes the space of a storey when it
/// is first needed.
class Surroundings {
 public:
  explicit Surroundings(const Building& building);

  const Space& space(double level) const;
  /// The doors that open into an area.
  std::vector<const Door*> doorsOf(const Area& area) const;
  /// The storeys that many heights above or, if it is negative, below a storey.
  std::vector<double> neighbors(double level, int steps) const;

  /// The paths that pass a point with an identifier of the source.
  const PathsByLevel& pathsAt(const std::string& point) const;

  /// How far a point is from the space of a storey, at most 20 m.
  double distance(double level, Point point) const;

  /// Whether it lies in a room.
  bool isInRoom(const Spot& spot) const;

 private:
  const Building& building_;
  Heights heights_;
  std::map<std::string, std::vector<const Door*>> doors_;
  std::map<std::string, PathsByLevel> paths_;  // by point
  mutable std::map<double, std::unique_ptr<Space>> spaces_;
};

}  // namespace orivanta::importer
