#include "Source/UI/Display/Styled/StackSymbols.hpp"

#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/UI/Display/Styled/FloorRecords.hpp"

namespace orivanta {

namespace {

constexpr double mostImportant = 100;
// Points between symbols of a floor.
constexpr double leastOfKind = 48;
constexpr double leastOfOthers = 26;
constexpr double scaleShare = 0.3;  // of the scales from which on icons are shown on a single floor

bool hasSymbol(PlaceKind kind) {
  const FillKind fill = fillKindOf(kind);
  return fill == FillKind::vertical || fill == FillKind::toilet || kind == PlaceKind::entrance ||
         kind == PlaceKind::exit;
}

// Raises the scales of labels from `first` on that are near more important ones. In the order of
// importance, each label is shown from the scale on at which it is far from those shown there.
void thinOut(FloorLabels& symbols, std::size_t first) {
  std::vector<std::size_t> order(symbols.labels.size() - first);
  std::iota(order.begin(), order.end(), first);
  foundation::stableSort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return symbols.labels[left].rank > symbols.labels[right].rank;
  });
  const auto scaleOf = [&](std::size_t i) -> double& { return symbols.labels[i].scales.symbol; };
  for (auto own = order.begin(); own != order.end(); ++own)
    for (bool isRaised = true; isRaised;) {
      isRaised = false;
      for (auto other = order.begin(); other != own; ++other) {
        const graphics::Vector3 way = symbols.anchors[*own] - symbols.anchors[*other];
        const bool areAlike = symbols.sources[*own].kind == symbols.sources[*other].kind;
        const double scale = (areAlike ? leastOfKind : leastOfOthers) * symbols.unitsPerMeter /
                             std::hypot(double{way.x}, double{way.y});
        if (scaleOf(*other) > scaleOf(*own) || scaleOf(*own) >= scale) continue;
        scaleOf(*own) = scale;
        isRaised = true;
      }
    }
}

}  // namespace

std::shared_ptr<const FloorLabels> stackSymbols(const Venue& venue, const StackedFloors& stack,
                                                std::shared_ptr<const StackCover> cover,
                                                const MapTheme& theme, double size,
                                                const guidance::Closures& closures) {
  auto symbols = std::make_shared<FloorLabels>(FloorLabels{{}, {}, {}, {}, {{}, {}}, 1, {}});
  for (const StackedFloor& floor : stack.floors) {
    if (!floor.isWhole) continue;
    const std::size_t first = symbols->labels.size();
    const FloorCells& cells = cover->of(*floor.floor).cells;
    const FloorRecords records = floorRecords(venue, *floor.floor, theme.words, closures);
    symbols->unitsPerMeter = records.unitsPerMeter.value_or(1);
    for (const PlaceRecord& place : records.places) {
      if (!hasSymbol(place.kind) || !place.entry) continue;
      graphics::Vector3 anchor = *place.entry;
      if (!cells.contains({anchor.x, anchor.y}, cover->frame)) continue;
      anchor.z += static_cast<float>(floor.offset);
      symbols->anchors.push_back(anchor);
      PlaceLabel label;
      label.rank = place.kind == PlaceKind::lift ? mostImportant : importanceOf(place.kind);
      if (records.unitsPerMeter)
        label.scales.symbol = theme.zoomStep(label.rank).iconFrom * scaleShare;
      label.symbolSize = size;
      symbols->labels.push_back(std::move(label));
      symbols->sources.push_back({place.place, place.kind, false, place.isClosed, {}});
    }
    thinOut(*symbols, first);
  }
  symbols->cover = std::move(cover);
  return symbols;
}

}  // namespace orivanta
