// The forms that a label can have, and where its parts are.
// Private header.
#pragma once

#include <optional>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

/// The side and the number of lines of a name.
struct LabelForm {
  LabelSide side = LabelSide::center;
  std::size_t lines = 1;

  friend bool operator==(const LabelForm&, const LabelForm&) = default;
};

/// How text in the view lies on the floor.
struct TextPlane {
  graphics::Point direction{1, 0};  // unit vector along lines of text, in the scene
  double upright = 1;               // the height of text in the view, relative to that on the floor
};

/// Returns how text lies on the floor in a frame.
TextPlane textPlane(const LabelFrame& frame);

/// Returns whether the name fits into the area in a number of lines. With a `tolerance` below 1,
/// the area may be smaller than the name by this factor.
bool fitsInside(const PlaceLabel& label, std::size_t lines, const ProjectedPlace& place,
                const TextPlane& plane, double tolerance);

/// Returns the smallest number of lines in which the name fits into the area.
std::optional<std::size_t> linesInside(const PlaceLabel& label, const ProjectedPlace& place,
                                       const TextPlane& plane);

/// Returns the number of lines of a name beside its symbol: two if one would be long.
std::size_t linesBeside(const PlaceLabel& label);

/// Returns the rectangle of the symbol.
graphics::Rect symbolRect(const PlaceLabel& label, graphics::Point anchor);

/// Returns the rectangle of the name, which must exist in this number of lines.
graphics::Rect nameRect(const PlaceLabel& label, const LabelForm& form, graphics::Point anchor);

}  // namespace orivanta
