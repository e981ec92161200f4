// The icons of kinds of places, as JSON.
#pragma once

#include <boost/json/array.hpp>

namespace orivanta::web {

/// Returns for each kind `kind`, and `parts` from back to front: `path` in the notation of
/// `graphics::DrawingPart`, `color` such as "#1f4da7", and `width` of the line, 0 for a fill.
/// `outOfOrder` has the parts of the icon of what cannot be used.
boost::json::array iconsJson(bool isDark);

}  // namespace orivanta::web
