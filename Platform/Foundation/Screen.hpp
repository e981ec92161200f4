// The main screen, as far as code without graphics needs to know it.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Device pixels per point of the main screen. 1.0 until a host sets it.
ORIVANTA_API double mainScreenScale();

/// Told by the host before it shows anything; values that are not above zero are ignored. Any
/// thread.
ORIVANTA_API void setMainScreenScale(double pixelsPerPoint);

}  // namespace orivanta::foundation
