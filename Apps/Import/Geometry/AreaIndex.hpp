// Finds the areas of a storey at a point or in a box.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// Refers to the areas of a building, which must outlive it and keep their addresses. Not to be
/// used from several threads at once.
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

  /// Whether an area of the index contains a point. Large outlines do not make it slow.
  bool contains(const Area& area, Point point) const;

  /// The distance of a point to an area of the index, 0 within it; `atMost` if it is larger.
  double distance(const Area& area, Point point, double atMost) const;

 private:
  struct Tree;
  const Space* spaceOf(const Area& area) const;
  std::vector<const Area*> within(Point low, Point high) const;
  std::unique_ptr<Tree> tree_;
};

}  // namespace orivanta::importer
