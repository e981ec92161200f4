// How often ways turn from one line into another.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Ways that pass a node, from the line to `from` into the line to `to` or back.
struct Turn {
  std::uint32_t from;
  std::uint32_t to;
  double uses;  ///< the number of such ways
};

/// Counts the turns of the shortest ways from each door, stop and place of a storey to the nearest
/// others. Ways do not lead through rooms. Returns the turns at each node. Where very many lines
/// meet, some turns are missing.
std::vector<std::vector<Turn>> countTurns(const Draft& draft);

}  // namespace orivanta::importer
