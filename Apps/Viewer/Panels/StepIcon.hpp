// The icons of instructions.
#pragma once

#include "Apps/Viewer/Widgets/Icon.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"

namespace orivanta::viewer {

/// Returns the icon of an instruction of an itinerary: an arrow, a connector, or a pin.
Icon stepIcon(const guidance::Itinerary& itinerary, const guidance::Step& step);

}  // namespace orivanta::viewer
