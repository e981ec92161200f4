// Adds lines across the open ground to a network.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Network/OutdoorExits.hpp"

namespace orivanta::importer {

/// Keeps a reference to the building, whose network only this may change meanwhile.
class OutdoorLines {
 public:
  explicit OutdoorLines(Building& building) : building_(building) {}

  /// The node at an exit. Makes an entrance of a guessed exit.
  std::size_t nodeOf(const OutdoorExit& exit);

  /// Adds the line from one exit by bends to another. Lines with a bend at the same point share its
  /// node.
  void add(const OutdoorExit& from, const std::vector<Point>& bends, const OutdoorExit& to);

  /// Adds lines past exits at which ways would turn back, from the bend before them to what is
  /// behind them.
  void cutTurnsBack(const SegmentGrid& walls);

 private:
  std::size_t nodeAt(Point bend, std::size_t exit);
  void addEdge(std::size_t from, std::size_t to);

  Building& building_;
  std::map<std::string, std::size_t> guessed_;  // nodes, by the identifier of the door
  std::map<std::string, std::size_t> bends_;    // counts, by the exit from which they were made
  std::map<std::pair<double, double>, std::size_t> nodesOfBends_;
  std::set<std::pair<std::size_t, std::size_t>> edges_;  // that this added
};

}  // namespace orivanta::importer
