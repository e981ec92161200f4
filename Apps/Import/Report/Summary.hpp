// What an import has made, in numbers.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

struct Summary {
  std::size_t floors = 0;
  std::size_t rooms = 0;           ///< areas that are entered through doors
  std::size_t roomsReachable = 0;  ///< from the part of the network with the most rooms
  std::size_t doorsGuessed = 0;
  std::size_t elevators = 0;
  std::size_t escalators = 0;
  std::size_t stairs = 0;
  std::size_t ramps = 0;  ///< also moving walkways
};

Summary summarize(const Building& building);

/// Such as "3 floors, 120 rooms (112 doors guessed), 4 lifts, 9 stairs; 118 rooms reachable".
std::string summaryText(const Summary& summary);

/// The parts of the walking network that no path or connector joins.
struct NetworkParts {
  std::vector<std::size_t> partOf;  ///< of each node of the network
  /// Of each part: the indices of the areas of rooms, in the order of the building. The first part
  /// has the most rooms.
  std::vector<std::vector<std::size_t>> rooms;
  std::vector<std::size_t> withoutNodes;  ///< rooms that no node belongs to
};

NetworkParts networkParts(const Building& building);

}  // namespace orivanta::importer
