// Decides where connectors are boarded.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Import/Connectors/Pairing.hpp"

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

 private:
  const Building& building_;
  Heights heights_;
  std::map<std::string, std::vector<const Door*>> doors_;
  std::map<std::string, PathsByLevel> paths_;  // by point
  mutable std::map<double, std::unique_ptr<Space>> spaces_;
};

/// The stops of pieces that belong together, which are ordered by storey. A piece without contact
/// has a stop at its point that is nearest to the space.
std::vector<Stop> stopsOf(const std::vector<const Piece*>& pieces,
                          const Surroundings& surroundings);

/// The stops of a piece without others: it leads to the storey above or below where it touches the
/// space there, or else, unless it is an escalator,
/// from one side of its own storey to the other. One stop if it leads nowhere.
std::vector<Stop> stopsOfSingle(const Piece& piece, const Surroundings& surroundings);

/// Forbids to enter at the end and to leave at the start of what is used in one direction. Forward
/// is in the order of the stops.
void applyDirection(std::vector<Stop>& stops, Direction direction);

}  // namespace orivanta::importer
