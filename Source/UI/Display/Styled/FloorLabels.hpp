// The labels of a floor: where they are anchored, how their names are broken into lines, and what
// they would cover.
// Private header.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/FloorAreas.hpp"
#include "Source/UI/Display/Styled/FloorCells.hpp"
#include "Source/UI/Display/Styled/FloorRecords.hpp"
#include "Source/UI/Labels/AreaRaster.hpp"
#include "Source/UI/Labels/LineBreaks.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Returns the size of a text with line breaks in points, without its outline. Any thread.
using TextMeasure =
    std::function<graphics::Size(std::string_view text, const graphics::TextStyle& style)>;

/// What a label stands for.
struct LabelSource {
  std::shared_ptr<Location> place;  ///< the place or connector; never null
  PlaceKind kind = PlaceKind::other;
  bool isDot = false;             ///< the symbol is a dot, not an icon
  bool isClosed = false;          ///< the icon is that of a place that is out of order
  std::vector<LabelLines> names;  ///< the texts of `PlaceLabel::names`
};

/// An area in which a name can be at several points. See `NamePlaces`.
struct LargeArea {
  std::size_t main = 0;   ///< the label at the anchor of the area
  std::size_t first = 0;  ///< the first label at another point
  std::size_t end = 0;    ///< the end of these labels
  double pitch = 0;       ///< of the points, scene units
};

/// The labels of a floor. The lists of labels, anchors and sources have equal lengths.
struct FloorLabels {
  std::vector<PlaceLabel> labels;
  std::vector<graphics::Vector3> anchors;  ///< scene units
  std::vector<LabelSource> sources;
  std::vector<LargeArea> large;
  AreaRaster raster;         ///< the areas of the labels and of other shapes, without walkable ones
  double unitsPerMeter = 1;  ///< scene units; estimated if the venue does not state its scale
  std::shared_ptr<const StackCover> cover;  ///< hides anchors; null if nothing does
};

/// Returns the lines of a name with line breaks between them.
std::string joinedLines(const LabelLines& lines);

/// Returns the style of names of a font size, in points: the font, the halo and the colors.
graphics::TextStyle nameStyle(const MapTheme& theme, double fontSize);

/// Makes the labels of a floor. A name is centered in the largest area of its place on the floor.
/// Places without an area are labeled at their first node, and are left out if they have none. The
/// scales and sizes are those of the theme.
///
/// Connectors and other facilities always have an icon; food, culture and sport, and all places
/// without an area, have one if the name is not inside the area; others have a dot. Generated names
/// are shown only inside areas, and not at facilities. What is closed always has an icon, and the
/// word for it below its name.
///
/// Areas of more than 15 meters have further labels, which consist of the name only. They are at
/// the end of the lists.
///
/// If the venue does not state its scale, the side of the median area is taken as 5 meters. Any
/// thread; takes up to some tenths of a second, most of them for the areas of the floor.
FloorLabels makeFloorLabels(const FloorRecords& records, const FloorAreas& areas,
                            const MapTheme& theme,
                            const TextMeasure& measure = graphics::measureText);

}  // namespace orivanta
