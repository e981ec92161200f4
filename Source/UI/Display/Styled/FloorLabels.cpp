#include "Source/UI/Display/Styled/FloorLabels.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/UI/Display/AssumedScale.hpp"
#include "Source/UI/Display/Styled/FloorAreas.hpp"
#include "Source/UI/Labels/LabelRank.hpp"

namespace orivanta {

namespace {

constexpr double dotSize = 5;         // points
constexpr double leastFacility = 60;  // importance

// Of the points in an area at which its name can be, meters.
constexpr double leastPitch = 10;

// A name that fits into its area is shown from this share of the usual scale on.
constexpr double insideShare = 0.35;

// Places that visitors recognize by an icon rather than by a name.
bool isFacility(PlaceKind kind) { return importanceOf(kind) >= leastFacility; }

bool isConnector(PlaceKind kind) { return fillKindOf(kind) == FillKind::vertical; }

bool hasIconBesideName(PlaceKind kind) {
  const FillKind fill = fillKindOf(kind);
  return fill == FillKind::food || fill == FillKind::leisure;
}

bool isPlain(PlaceKind kind) {
  return kind == PlaceKind::room || kind == PlaceKind::office || kind == PlaceKind::other;
}

class FloorLabeling {
 public:
  FloorLabeling(const FloorRecords& records, const MapTheme& theme, const TextMeasure& measure,
                const FloorAreas& areas)
      : records_(records),
        theme_(theme),
        measure_(measure),
        areas_(areas),
        unitsPerMeter_(records.unitsPerMeter ? *records.unitsPerMeter : estimatedUnitsPerMeter()),
        owners_(areas_.all().size(), AreaRaster::nobody) {}

  FloorLabels run() {
    for (const PlaceRecord& place : records_.places) add(place);
    const std::size_t count = labels_.size();
    for (std::size_t i = 0; i < count; ++i)
      if (labels_[i].room && !labels_[i].symbolFirst) addFurther(i);
    return {std::move(labels_),
            std::move(anchors_),
            std::move(sources_),
            std::move(large_),
            raster(),
            unitsPerMeter_,
            {}};
  }

 private:
  double estimatedUnitsPerMeter() const {
    std::vector<double> sides;
    for (const PlaceRecord& place : records_.places)
      if (const auto area = areas_.largest(place.shapes); area && !isConnector(place.kind))
        sides.push_back(std::sqrt(areas_.all()[*area].area.size));
    return assumedUnitsPerMeter(std::move(sides));
  }

  void add(const PlaceRecord& place) {
    const auto area = areas_.largest(place.shapes);
    if (!area && !place.entry) return;
    const bool isUnsigned = place.isNameGenerated && !isFacility(place.kind) && !place.isClosed;
    LabelSource source{place.place,
                       place.kind,
                       !hasIcon(place.kind, area.has_value()) && !place.isClosed,
                       place.isClosed,
                       {}};
    PlaceLabel label;
    label.insideOnly = isUnsigned && area;
    if (!area && isUnsigned && source.isDot) return;
    setScale(label, place, area);
    if (place.isClosed)
      setNames(label, source, place.isNameGenerated ? "" : place.name, records_.closedWord);
    else if (!place.isNameGenerated || label.insideOnly)
      setNames(label, source, place.name);
    if (label.insideOnly && label.names.empty()) return;
    label.symbolSize = source.isDot ? dotSize : theme_.sizes.icon;
    label.symbolFirst = !area || isFacility(place.kind) || place.isClosed;
    for (const std::size_t index : areas_.indicesOf(place.shapes))
      if (owners_[index] == AreaRaster::nobody)
        owners_[index] = static_cast<std::uint32_t>(labels_.size());
    anchors_.push_back(area ? anchorIn(*area, label) : *place.entry);
    shapes_.push_back(area.value_or(0));
    labels_.push_back(std::move(label));
    sources_.push_back(std::move(source));
  }

  static bool hasIcon(PlaceKind kind, bool hasArea) {
    return isFacility(kind) || (hasArea ? hasIconBesideName(kind) : !isPlain(kind));
  }

  void setScale(PlaceLabel& label, const PlaceRecord& place,
                std::optional<std::size_t> area) const {
    double size = 0;  // square meters
    if (area && !isConnector(place.kind))
      size = areas_.all()[*area].area.size / (unitsPerMeter_ * unitsPerMeter_);
    const bool isUnsigned = place.isNameGenerated && !isFacility(place.kind);
    double importance = importanceOf(place.kind);
    if (place.isClosed) importance = std::max(importance, leastFacility);
    label.rank = labelRank(importance, size, isUnsigned && !place.isClosed);
    const ZoomStep step = theme_.zoomStep(label.rank);
    label.scales = {step.iconFrom, step.nameFrom,
                    isUnsigned ? step.nameFrom : step.nameFrom * insideShare};
  }

  // The last line follows the name.
  void setNames(PlaceLabel& label, LabelSource& source, const std::string& name,
                const std::string& lastLine = "") const {
    const graphics::TextStyle style = nameStyle(theme_, theme_.nameSize(label.rank));
    source.names =
        labelLines(name, [&](std::string_view text) { return measure_(text, style).width; });
    if (!lastLine.empty()) {
      if (source.names.empty()) source.names.emplace_back();
      for (LabelLines& lines : source.names) lines.lines.push_back(lastLine);
    }
    for (const LabelLines& lines : source.names) {
      const graphics::Size size = measure_(joinedLines(lines), style);
      // The lines are higher than their glyphs: half of the halo lies above and below them.
      label.names.push_back(
          {size.width + 2 * style.outlineWidth, size.height + style.outlineWidth});
    }
  }

  graphics::Vector3 anchorIn(std::size_t index, PlaceLabel& label) const {
    AreaName name = areas_.nameIn(index);
    label.room = std::move(name.room);
    return {static_cast<float>(name.anchor.point.x), static_cast<float>(name.anchor.point.y),
            static_cast<float>(areas_.all()[index].area.height)};
  }

  // Adds labels that show the name at other points of the area.
  void addFurther(std::size_t main) {
    if (labels_[main].names.empty()) return;
    const double pitch = areas_.pitchIn(shapes_[main], leastPitch * unitsPerMeter_);
    LargeArea large{main, labels_.size(), 0, pitch};
    for (const AreaName& name : areas_.namesIn(shapes_[main], pitch)) {
      PlaceLabel label = labels_[main];
      label.room = name.room;
      label.insideOnly = true;
      labels_.push_back(std::move(label));
      anchors_.emplace_back(static_cast<float>(name.anchor.point.x),
                            static_cast<float>(name.anchor.point.y), anchors_[main].z);
      sources_.push_back(sources_[main]);
    }
    large.end = labels_.size();
    if (large.end > large.first) large_.push_back(large);
  }

  // Small areas are drawn over those on which they lie.
  AreaRaster raster() const {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < areas_.all().size(); ++i)
      if (areas_.all()[i].surface == ShapeRole::Surface::place) order.push_back(i);
    foundation::stableSort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
      return areas_.all()[left].area.size > areas_.all()[right].area.size;
    });
    std::vector<LabelArea> areas;
    std::vector<std::uint32_t> owners;
    for (const std::size_t i : order) {
      areas.push_back(areas_.all()[i].area);
      owners.push_back(owners_[i]);
    }
    return {areas, owners};
  }

  const FloorRecords& records_;
  const MapTheme& theme_;
  const TextMeasure& measure_;
  const FloorAreas& areas_;
  double unitsPerMeter_;
  std::vector<PlaceLabel> labels_;
  std::vector<graphics::Vector3> anchors_;
  std::vector<LabelSource> sources_;
  std::vector<std::size_t> shapes_;  // the areas of the labels that have one
  std::vector<LargeArea> large_;
  std::vector<std::uint32_t> owners_;  // of the areas
};

}  // namespace

std::string joinedLines(const LabelLines& lines) {
  std::string text;
  for (const std::string& line : lines.lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

graphics::TextStyle nameStyle(const MapTheme& theme, double fontSize) {
  graphics::TextStyle style;
  style.fontFamily = theme.fontFamily;
  style.fontSize = fontSize;
  style.color = theme.colors.text;
  style.outlineColor = theme.colors.halo;
  style.outlineWidth = theme.sizes.halo;
  style.wholeLines = true;
  return style;
}

FloorLabels makeFloorLabels(const FloorRecords& records, const FloorAreas& areas,
                            const MapTheme& theme, const TextMeasure& measure) {
  return FloorLabeling(records, theme, measure, areas).run();
}

}  // namespace orivanta
