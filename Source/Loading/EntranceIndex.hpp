// Taking from locations the nodes that are entrances of their polygons.
#pragma once

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// Refers to the polygons, which must outlive it unchanged. Any number of threads at once.
///
/// Thousands of locations may name the same polygon with thousands of entrances, so a location
/// costs no more steps for each of its polygons than it has nodes itself. Where both are many, the
/// product can still be large: each step costs the budget 32 bytes, as if it took memory.
class EntranceIndex {
 public:
  using FoundPolygons = std::span<const std::shared_ptr<Polygon>* const>;

  /// `budget` may be null.
  EntranceIndex(const Collection<Polygon>& polygons, foundation::MemoryBudget* budget);

  /// Removes from `nodes` those that are entrances of one of the polygons, which may be named more
  /// than once. Throws `BudgetExceeded`.
  void drop(NodeList& nodes, FoundPolygons polygons) const;

 private:
  using SortedNodes = std::vector<const Node*>;

  void mark(const Polygon& polygon, const SortedNodes& own, std::vector<bool>& marks) const;

  foundation::MemoryBudget* budget_;
  std::unordered_map<const Polygon*, SortedNodes> entrances_;  // of polygons with more than a few
};

}  // namespace orivanta
