// Removes from locations the nodes that are entrances of their polygons.
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

/// Refers to the polygons, which must outlive it unchanged. Thread-safe.
///
/// Thousands of locations may name the same polygon with thousands of entrances, so for each
/// polygon of a location the number of steps is at most the number of the location's nodes. If
/// there are many of both, the product can still be large, so each step takes 32 bytes of the
/// budget, as if it allocated memory.
class EntranceIndex {
 public:
  using FoundPolygons = std::span<const std::shared_ptr<Polygon>* const>;

  /// `budget` may be null.
  EntranceIndex(const Collection<Polygon>& polygons, foundation::MemoryBudget* budget);

  /// Removes from `nodes` those that are entrances of one of the polygons. The list may contain a
  /// polygon more than once. Throws `BudgetExceeded`.
  void drop(NodeList& nodes, FoundPolygons polygons) const;

 private:
  using SortedNodes = std::vector<const Node*>;

  void mark(const Polygon& polygon, const SortedNodes& own, std::vector<bool>& marks) const;

  foundation::MemoryBudget* budget_;
  std::unordered_map<const Polygon*, SortedNodes> entrances_;  // of polygons with more than a few
};

}  // namespace orivanta
