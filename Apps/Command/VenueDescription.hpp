// Describes a venue: its floors, its tree of categories, its connectors.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::command {

struct FloorSummary {
  std::shared_ptr<Map> map;
  std::size_t locations = 0;
  std::size_t nodes = 0;
  std::size_t polygons = 0;
};

/// One line of the tree. A category with several parents is listed below each of them, but its
/// children only the first time.
struct CategoryLine {
  std::shared_ptr<Category> category;
  std::size_t depth = 0;
  bool shownAbove = false;
};

/// Connectors of one type that connect the same floors.
struct ConnectorGroup {
  std::string type;
  std::vector<std::shared_ptr<Map>> floors;  ///< the highest first
  bool accessible = true;
  std::vector<std::shared_ptr<Vortex>> connectors;
};

// All functions take a loaded venue. They count links that occur twice in it once.

/// The floors by elevation, the highest first.
std::vector<FloorSummary> floorSummaries(const Venue& venue);

/// The categories without parents, each followed by its descendants. Categories that are reachable
/// only through a cycle of parents come last, below the first of them.
std::vector<CategoryLine> categoryTree(const Venue& venue);

/// Sorted by type in alphabetical order, and within a type in the venue's order.
std::vector<ConnectorGroup> connectorGroups(const Venue& venue, bool accessibleOnly);

/// The number of locations that belong directly to the category.
std::size_t locationCount(const Category& category);

}  // namespace orivanta::command
