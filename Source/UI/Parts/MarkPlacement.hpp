// Chooses how the marks of a route look, so that they hide neither each other nor the route.
#pragma once

#include <span>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// A pin stands on its place; a dot lies on it and covers less.
enum class MarkSymbol { pin, dot };

/// Where the text is, seen from the symbol.
enum class TextSide { below, above, right, left };

struct MarkLook {
  MarkSymbol symbol = MarkSymbol::pin;
  TextSide side = TextSide::below;

  friend bool operator==(const MarkLook&, const MarkLook&) = default;
};

// All lengths in points, y downwards.
inline constexpr double pinHeight = 34;
inline constexpr double dotSide = 18;

/// Something to be marked.
struct MarkPlace {
  graphics::Point at;
  graphics::Size text;  ///< empty without a text
};

/// What a mark covers: its symbol, and its text, whose size may be empty.
struct MarkFrames {
  graphics::Rect symbol;
  graphics::Rect text;
};
MarkFrames framesOf(const MarkPlace& mark, const MarkLook& look);

/// A look for each mark: pins with the text below them where there is room, otherwise with the text
/// on another side, and dots where a pin would cover much of a short route. `route` holds the lines
/// of the route as they show, `view` what can be seen. A mark keeps its look from `before`, which
/// has one for each mark or none, unless another is clearly better.
std::vector<MarkLook> placeMarks(std::span<const MarkPlace> marks,
                                 std::span<const std::vector<graphics::Point>> route,
                                 const graphics::Rect& view, std::span<const MarkLook> before);

}  // namespace orivanta
