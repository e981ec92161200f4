// The drawings of the symbols of icons.
// Private header.
#pragma once

#include <span>
#include <string_view>

#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta {

/// A path on a grid of 24 by 24 units around the origin, in the notation of
/// `graphics::DrawingPart`. Symbols extend about 7 units from the origin.
struct IconPath {
  std::string_view path;
  double strokeWidth = 2.0;  ///< 0 fills the path
  bool isCut = false;        ///< drawn in the color of the disc, over the paths before it
};

/// The paths of the symbol of a kind, from back to front.
std::span<const IconPath> iconPathsOf(PlaceKind kind);

/// The paths of the symbol of a visitor's position.
std::span<const IconPath> herePaths();

/// The paths of the symbol of a person who walks.
std::span<const IconPath> walkPaths();

}  // namespace orivanta
