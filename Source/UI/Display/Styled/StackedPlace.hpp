// The mark of the selected place in stacked floors.
// Private header.
#pragma once

#include <optional>
#include <string>

#include "Source/UI/Display/Styled/RouteContents.hpp"

namespace orivanta {

class MapView;

/// Returns a pin at a place or connector, on the current floor or else on the first floor of the
/// place that has a model. Returns nothing if there is none. Main thread.
std::optional<RouteMark> stackedMark(const MapView& view, const std::shared_ptr<Location>& place,
                                     std::string name);

}  // namespace orivanta
