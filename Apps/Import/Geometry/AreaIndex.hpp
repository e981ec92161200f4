// Finds the areas of a storey at a point or in a box.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Refers to the areas of a building, which must outlive it and keep their addresses.
class AreaIndex {
 public:
  /// Of the areas on `level`, takes those for which `choose` returns true.
  AreaIndex(const Building& building, double level, const std::function<bool(const Area&)>& choose);
  ~AreaIndex();
  AreaIndex(const AreaIndex&) = delete;
  AreaIndex& operator=(const AreaIndex&) = delete;

  /// The areas whose bounding boxes come within a distance of a point, in the building's order.
  std::vector<const Area*> near(Point point, double distance) const;

  /// The areas whose bounding boxes come within a distance of that of another shape, in the
  /// building's order.
  std::vector<const Area*> near(const std::vector<Polygon>& shape, double distance) const;

  /// The area with the smallest surface of those that contain a point, or null.
  const Area* smallestAt(Point point) const;

 private:
  struct Tree;
  std::vector<const Area*> within(Point low, Point high) const;
  std::unique_ptr<Tree> tree_;
};

}  // namespace orivanta::importer
