// Draws the signs of categories.
#pragma once

#include <span>

#include "Apps/Package/Picture.hpp"
#include "Apps/Package/Symbols.hpp"

namespace orivanta::package {

/// A symbol on a disc, surrounded by rings. The picture is half as high as wide.
Picture makeSign(Color ground, Color ink, std::span<const Mark> symbol, int width);

}  // namespace orivanta::package
