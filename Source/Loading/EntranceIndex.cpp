#include "Source/Loading/EntranceIndex.hpp"

#include <algorithm>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/Polygon.hpp"

namespace orivanta {

namespace {

constexpr std::size_t fewEntrances = 8;
constexpr std::size_t bytesPerStep = 32;
constexpr std::size_t bytesPerEntry = 96;

std::vector<const Node*> sortedPointers(const NodeList& nodes) {
  std::vector<const Node*> pointers;
  pointers.reserve(nodes.size());
  for (const auto& node : nodes) pointers.push_back(node.get());
  foundation::sort(pointers.begin(), pointers.end());
  pointers.erase(std::unique(pointers.begin(), pointers.end()), pointers.end());
  return pointers;
}

std::vector<const Polygon*> distinct(EntranceIndex::FoundPolygons found) {
  std::vector<const Polygon*> polygons;
  polygons.reserve(found.size());
  for (const auto* polygon : found) polygons.push_back(polygon->get());
  foundation::sort(polygons.begin(), polygons.end());
  polygons.erase(std::unique(polygons.begin(), polygons.end()), polygons.end());
  return polygons;
}

}  // namespace

EntranceIndex::EntranceIndex(const Collection<Polygon>& polygons, foundation::MemoryBudget* budget)
    : budget_(budget) {
  for (const auto& [id, polygon] : polygons) {
    const NodeList& entrances = polygon->entrances;
    if (entrances.size() <= fewEntrances) continue;
    if (budget_ != nullptr) budget_->take(bytesPerEntry + entrances.size() * sizeof(void*));
    entrances_.emplace(polygon.get(), sortedPointers(entrances));
  }
}

void EntranceIndex::drop(NodeList& nodes, FoundPolygons polygons) const {
  if (nodes.empty() || polygons.empty()) return;
  const SortedNodes own = sortedPointers(nodes);
  std::vector<bool> marks(own.size());
  for (const Polygon* polygon : distinct(polygons)) mark(*polygon, own, marks);
  std::erase_if(nodes, [&](const auto& node) {
    const auto place = std::lower_bound(own.begin(), own.end(), node.get());
    return marks[static_cast<std::size_t>(place - own.begin())];
  });
}

// Marks the nodes of a location that are entrances of the polygon.
void EntranceIndex::mark(const Polygon& polygon, const SortedNodes& own,
                         std::vector<bool>& marks) const {
  const NodeList& entrances = polygon.entrances;
  const bool isIndexed = entrances.size() > fewEntrances;
  if (budget_ != nullptr)
    budget_->take(bytesPerStep * (isIndexed ? std::min(entrances.size(), own.size()) : 1));
  if (isIndexed && own.size() < entrances.size()) {
    const SortedNodes& sorted = entrances_.at(&polygon);
    for (std::size_t i = 0; i < own.size(); ++i)
      if (std::binary_search(sorted.begin(), sorted.end(), own[i])) marks[i] = true;
    return;
  }
  for (const auto& entrance : entrances) {
    const auto place = std::lower_bound(own.begin(), own.end(), entrance.get());
    if (place != own.end() && *place == entrance.get())
      marks[static_cast<std::size_t>(place - own.begin())] = true;
  }
}

}  // namespace orivanta
