// Calls operations of a map view by name, for scripts and language bindings.
#pragma once

#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta {

class MapView;

/// An argument of an operation.
using MessageArgument = std::variant<bool, double, graphics::Vector3, graphics::Color>;

/// Calls one of these operations. The arguments are in the order of the colons:
///
///     drawCurrentPath                                                 none
///     clearPaths:                                                     bool
///     drawPathSegment:positionB:                                      vector, vector
///     drawPathSegmentStrip:positionB:pathWidth:pathColor:elevation:   vector, vector, number,
///                                                                     color, number
///     drawPathSegmentArrow:positionB:pathWidth:elevation:             vector, vector, number,
///                                                                     number
///     removeHighlightNode                                             none
///
/// Fails and does nothing if the selector is unknown or the arguments do not match it in number and
/// type. Main thread.
ORIVANTA_API foundation::Result<void> perform(MapView& mapView, std::string_view selector,
                                              std::span<const MessageArgument> arguments);

/// Returns all supported selectors.
ORIVANTA_API std::vector<std::string_view> messageSelectors();

}  // namespace orivanta
