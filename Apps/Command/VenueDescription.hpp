// What there is to say about a venue: its floors, its tree of categories, its connectors.
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

/// One line of the tree; a category with several parents comes below each of them, its children
/// only the first time.
struct CategoryLine {
  std::shared_ptr<Category> category;
  std::size_t depth = 0;
  bool shownAbove = false;
};

/// Connectors of one type that join the same floors.
struct ConnectorGroup {
  std::string type;
  std::vector<std::shared_ptr<Map>> floors;  ///< top first
  bool accessible = true;
  std::vector<std::shared_ptr<Vortex>> connectors;
};

// All of these take a venue that has been loaded, and count links that it holds twice once.

/// The floors by elevation, the highest first.
std::vector<FloorSummary> floorSummaries(const Venue& venue);

/// The categories without parents, each followed by what is below it. Categories that only a circle
/// of parents leads to come last, below the first of them.
std::vector<CategoryLine> categoryTree(const Venue& venue);

/// By type in alphabetical order; within a type the groups are in the venue's order.
std::vector<ConnectorGroup> connectorGroups(const Venue& venue, bool accessibleOnly);

/// The number of locations directly in a category.
std::size_t locationCount(const Category& category);

}  // namespace orivanta::command
