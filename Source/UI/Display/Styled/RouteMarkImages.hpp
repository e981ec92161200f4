// What the marks of a route look like.
// Private header.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Lengths as shares of the width of the icons on the route.
namespace routeMarkShares {
inline constexpr double pin = 30.0 / 24;  ///< the height
inline constexpr double pinWidth = 22.0 / 24;
inline constexpr double pinHead = 19.5 / 24;  ///< from the tip to the middle of the head
inline constexpr double dot = 11.0 / 24;
inline constexpr double padding = 7.0 / 24;  ///< of the text of a badge
}  // namespace routeMarkShares

/// Returns whether a mark is a pin that points at its place.
bool isRoutePin(RouteMark::Form form);

/// Returns the style of the text of a mark.
graphics::TextStyle routeMarkTextStyle(const RouteMark& mark, const MapTheme& theme);

/// Returns the style of the number of a stop.
graphics::TextStyle routeMarkNumberStyle(const MapTheme& theme);

/// Draws the symbol of a mark. `scale`: pixels per point.
std::shared_ptr<const graphics::Image> makeRouteMarkSymbol(const RouteMark& mark,
                                                           const MapTheme& theme, double scale);

}  // namespace orivanta
