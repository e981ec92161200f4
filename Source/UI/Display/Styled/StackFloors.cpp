#include "Source/UI/Display/Styled/StackFloors.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <tuple>

#include "Source/Map.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostFloors = 7;
constexpr double overlap = 0.22;  // the share of the depth of a floor that the next one may hide
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
  std::ranges::sort(chosen, {}, keyOf);
  chosen.resize(std::min(count, mostFloors));
  std::ranges::sort(chosen);
  return chosen;
}

}  // namespace

StackedFloors stackFloors(const FloorList& floors, const FloorList& onRoute,
                          const std::shared_ptr<Map>& shown, double depth) {
  FloorList sorted = floorsFromTop(floors);
  std::ranges::reverse(sorted);
  const auto indexOf = [&](const std::shared_ptr<Map>& floor) {
    return static_cast<Index>(std::ranges::find(sorted, floor) - sorted.begin());
  };
  std::vector<Index> important{indexOf(shown)};
  for (const auto& floor : onRoute)
    if (std::ranges::find(sorted, floor) != sorted.end()) important.push_back(indexOf(floor));

  StackedFloors stack;
  const std::vector<Index> chosen = choose(sorted.size(), important);
  const double spacing = (1 - overlap) * depth * std::cos(stackTilt) / std::sin(stackTilt);
  double height = 0;
  double shownHeight = 0;
  for (const Index i : chosen) {
    const auto& floor = sorted[static_cast<std::size_t>(i)];
    const bool isWhole = onRoute.empty() || std::ranges::find(important, i) != important.end();
    if (stack.floors.empty()) {
      stack.hiddenBelow = static_cast<std::size_t>(i);
    } else {
      StackedFloor& below = stack.floors.back();
      below.hidden = static_cast<std::size_t>(i - indexOf(below.floor) - 1);
      height += spacing * (isWhole && below.isWhole   ? 1
                           : isWhole || below.isWhole ? besideFaded
                                                      : betweenFaded);
    }
    if (floor == shown) shownHeight = height;
    stack.floors.push_back(
        {floor, height, isWhole, sorted.size() - static_cast<std::size_t>(i) - 1});
  }
  for (StackedFloor& floor : stack.floors) floor.offset -= shownHeight;
  return stack;
}

}  // namespace orivanta
