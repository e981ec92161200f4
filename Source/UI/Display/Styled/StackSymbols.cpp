#include "Source/UI/Display/Styled/StackSymbols.hpp"

#include <utility>

#include "Source/UI/Display/Styled/FloorRecords.hpp"

namespace orivanta {

namespace {

constexpr double mostImportant = 100;
constexpr double scaleShare = 0.3;  // of the scales from which on icons are shown on a single floor

bool hasSymbol(PlaceKind kind) {
  const FillKind fill = fillKindOf(kind);
  return fill == FillKind::vertical || fill == FillKind::toilet || kind == PlaceKind::entrance ||
         kind == PlaceKind::exit;
}

}  // namespace

std::shared_ptr<const FloorLabels> stackSymbols(const Venue& venue, const StackedFloors& stack,
                                                std::shared_ptr<const StackCover> cover,
                                                const MapTheme& theme,
                                                const guidance::Closures& closures) {
  auto symbols = std::make_shared<FloorLabels>(FloorLabels{{}, {}, {}, {}, {{}, {}}, 1, {}});
  for (const StackedFloor& floor : stack.floors) {
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
      label.symbolSize = theme.sizes.icon;
      symbols->labels.push_back(std::move(label));
      symbols->sources.push_back({place.place, place.kind, false, place.isClosed, {}});
    }
  }
  symbols->cover = std::move(cover);
  return symbols;
}

}  // namespace orivanta
