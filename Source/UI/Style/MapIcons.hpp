// The icons of styled maps.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Drawing.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Whether the place that an icon shows can be used.
enum class IconState {
  normal,     ///< usable
  outOfOrder  ///< closed or broken: the disc is gray, and a bar crosses the symbol
};

/// Draws the icon of a kind: a symbol on a disc with a ring. The image is a square with sides of
/// `points` points and `scale` pixels per point. Returns null if it would exceed the limits of
/// `graphics::Image`. Any thread.
ORIVANTA_API std::shared_ptr<const graphics::Image> makeIconImage(
    PlaceKind kind, const MapTheme& theme, double points, double scale,
    IconState state = IconState::normal);

/// Returns the parts of such an icon from back to front, for drawings of `iconUnits` by `iconUnits`
/// units around the origin. Any thread.
ORIVANTA_API std::vector<graphics::DrawingPart> iconPartsOf(PlaceKind kind, const MapTheme& theme,
                                                            IconState state = IconState::normal);

/// The sides of the drawings of icons.
inline constexpr double iconUnits = 24.0;

/// As `makeIconImage`, for a visitor's own position. The arrow points up.
ORIVANTA_API std::shared_ptr<const graphics::Image> makeHereIconImage(const MapTheme& theme,
                                                                      double points, double scale);

/// As above, for a way between floors that is no connector: a person who walks.
ORIVANTA_API std::shared_ptr<const graphics::Image> makeWalkIconImage(const MapTheme& theme,
                                                                      double points, double scale);

}  // namespace orivanta
