#include "Source/UI/Display/Styled/StackFloors.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <tuple>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/Map.hpp"

namespace orivanta {

namespace {

constexpr double besideFaded = 0.72;
constexpr double betweenFaded = 0.42;

using Index = std::int64_t;

Index away(Index first, Index second) { return first < second ? second - first : first - second; }

// Returns the indices of the floors that are stacked, in ascending order. `important` contains the
// index of the shown floor first.
std::vector<Index> choose(std::size_t count, const std::vector<Index>& important) {
  const auto keyOf = [&](Index floor) {
    Index nearest = away(floor, important.front());
    for (const Index other : important) nearest = std::min(nearest, away(floor, other));
    return std::tuple(nearest, away(floor, important.front()), floor);
  };
  std::vector<Index> chosen(count);
  for (std::size_t i = 0; i < count; ++i) chosen[i] = static_cast<Index>(i);
  foundation::sort(chosen.begin(), chosen.end(),
                   [&](Index first, Index second) { return keyOf(first) < keyOf(second); });
  chosen.resize(std::min(count, mostStackedFloors));
  foundation::sort(chosen.begin(), chosen.end());
  return chosen;
}

// Returns the height of the next floor above those that are stacked already.
double heightOver(const std::vector<StackedFloor>& stacked, const StackedFloor& next,
                  const FloorSpacing& spacing) {
  double height = 0;
  for (const StackedFloor& lower : stacked) {
    const double share = next.isWhole && lower.isWhole   ? 1
                         : next.isWhole || lower.isWhole ? besideFaded
                                                         : betweenFaded;
    height = std::max(height, lower.offset + share * spacing(*lower.floor, *next.floor));
  }
  return height;
}

}  // namespace

StackedFloors stackFloors(const FloorList& floors, const FloorList& onRoute,
                          const std::shared_ptr<Map>& shown, const FloorSpacing& spacing) {
  FloorList sorted = floorsFromTop(floors);
  std::reverse(sorted.begin(), sorted.end());
  const auto indexOf = [&](const std::shared_ptr<Map>& floor) {
    return static_cast<Index>(std::find(sorted.begin(), sorted.end(), floor) - sorted.begin());
  };
  std::vector<Index> important{indexOf(shown)};
  for (const auto& floor : onRoute)
    if (std::find(sorted.begin(), sorted.end(), floor) != sorted.end())
      important.push_back(indexOf(floor));

  StackedFloors stack;
  Index next = 0;
  double shownHeight = 0;
  for (const Index i : choose(sorted.size(), important)) {
    const bool isWhole =
        onRoute.empty() || std::find(important.begin(), important.end(), i) != important.end();
    StackedFloor floor{sorted[static_cast<std::size_t>(i)], 0, isWhole, 0};
    (stack.floors.empty() ? stack.hiddenBelow : stack.floors.back().hidden) =
        static_cast<std::size_t>(i - next);
    next = i + 1;
    floor.offset = heightOver(stack.floors, floor, spacing);
    if (floor.floor == shown) shownHeight = floor.offset;
    stack.floors.push_back(std::move(floor));
  }
  stack.floors.back().hidden = sorted.size() - static_cast<std::size_t>(next);
  for (StackedFloor& floor : stack.floors) floor.offset -= shownHeight;
  return stack;
}

}  // namespace orivanta
