// Groups of boxes, so that what lies far apart can be computed separately.
#pragma once

#include <cstddef>
#include <vector>

#include "Apps/Package/Box.hpp"

namespace orivanta::importer {

/// Divides boxes into groups, so that boxes that overlap or touch are in one group. Boxes that are
/// merely near each other may be, too. Takes time proportional to the number of boxes. The groups
/// are in the order of their first boxes, and each group is ascending. Empty boxes touch nothing.
std::vector<std::vector<std::size_t>> touchingGroups(const std::vector<package::Box>& boxes);

}  // namespace orivanta::importer
