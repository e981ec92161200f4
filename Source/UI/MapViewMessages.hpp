// Operations of a map view called by name, for scripts and bindings of other languages.
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

/// Calls one of these, whose arguments stand in the order of the colons:
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
/// Fails and does nothing for another selector, or for arguments of another number or kind.
/// Main thread.
ORIVANTA_API foundation::Result<void> perform(MapView& mapView, std::string_view selector,
                                              std::span<const MessageArgument> arguments);

/// The selectors that there are.
ORIVANTA_API std::vector<std::string_view> messageSelectors();

}  // namespace orivanta
