// Selects the looks of a route's marks, so that they do not cover each other or the route.
// Private header.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// A pin points at its place from above; a dot is centered on it and covers less.
enum class MarkSymbol { pin, dot };

/// The position of the text relative to the symbol.
enum class TextSide { below, above, right, left };

struct MarkLook {
  MarkSymbol symbol = MarkSymbol::pin;
  TextSide side = TextSide::below;

  friend bool operator==(const MarkLook&, const MarkLook&) = default;
};

// All lengths are in points; y points down.
inline constexpr double pinHeight = 34;
inline constexpr double dotSide = 18;

/// The sizes and the possible looks of a mark.
struct MarkShape {
  graphics::Size pin{22, pinHeight};
  double dot = dotSide;  ///< width and height
  double gap = 2;        ///< between the symbol and the text
  bool hasPin = true;    ///< whether the symbol may be a pin
  bool hasDot = true;    ///< whether the symbol may be a dot
  /// The sides of the text by preference.
  std::array<TextSide, 4> sides{TextSide::below, TextSide::above, TextSide::right, TextSide::left};
  double overRoute = 0;  ///< the cost of a point of the route below the text; others are about 1
  double cut = 4;        ///< the cost of a text that is not entirely in the view
  /// Texts above and below the symbol are shifted sideways into this area, as long as the place is
  /// above or below them. No text is shifted if it is empty.
  graphics::Rect room{};
};

/// A place to be marked.
struct MarkPlace {
  graphics::Point at;
  graphics::Size text;  ///< empty if there is no text
  MarkShape shape{};
};

/// The areas that a mark covers: its symbol and its text, which may be empty.
struct MarkFrames {
  graphics::Rect symbol;
  graphics::Rect text;
};
MarkFrames framesOf(const MarkPlace& mark, const MarkLook& look);

/// Returns a look for each mark: a pin with the text below it if there is space, otherwise with the
/// text on another side, and a dot if a pin would cover much of a short route. `route` contains the
/// visible lines of the route, `view` is the visible area. `before` contains the previous look of
/// each mark, or is empty. A mark keeps its previous look unless another one is clearly better.
std::vector<MarkLook> placeMarks(std::span<const MarkPlace> marks,
                                 std::span<const std::vector<graphics::Point>> route,
                                 const graphics::Rect& view, std::span<const MarkLook> before);

}  // namespace orivanta
