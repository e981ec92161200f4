// The properties of the main screen that code without graphics needs.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Returns the device pixels per point of the main screen. The default is 1.0.
ORIVANTA_API double mainScreenScale();

/// Sets the device pixels per point of the main screen. The host calls it before it shows anything.
/// Values that are not greater than 0 are ignored. Any thread.
ORIVANTA_API void setMainScreenScale(double pixelsPerPoint);

}  // namespace orivanta::foundation
