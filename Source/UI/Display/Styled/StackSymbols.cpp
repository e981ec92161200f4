#include "Source/UI/Display/Styled/StackSymbols.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/UI/Display/Styled/FloorRecords.hpp"

namespace orivanta {

namespace {

constexpr double mostImportant = 100;
constexpr std::size_t mostCompared = 1000;
constexpr double leastDistance = 48;  // points, between symbols of a kind on a floor
constexpr double scaleShare = 0.3;  // of the scales from which on icons are shown on a single floor

bool hasSymbol(PlaceKind kind) {
  const FillKind fill = fillKindOf(kind);
  return fill == FillKind::vertical || fill == FillKind::toilet || kind == PlaceKind::entrance ||
         kind == PlaceKind::exit;
}

// Raises the scale of the last label so that it is far from those of its kind that are shown
// before.
void thinOut(FloorLabels& symbols, std::size_t first) {
  const std::size_t last = symbols.labels.size() - 1;
  double& scale = symbols.labels[last].scales.symbol;
  for (std::size_t i = std::max(first, last - std::min(last, mostCompared)); i < last; ++i) {
    const graphics::Vector3 way = symbols.anchors[last] - symbols.anchors[i];
    const double least = leastDistance * symbols.unitsPerMeter / std::hypot(way.x, way.y);
    if (symbols.sources[i].kind == symbols.sources[last].kind &&
        symbols.labels[i].scales.symbol <= scale)
      scale = std::max(scale, least);
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
      thinOut(*symbols, first);
    }
  }
  symbols->cover = std::move(cover);
  return symbols;
}

}  // namespace orivanta
