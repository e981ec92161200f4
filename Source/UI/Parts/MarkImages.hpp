// Pictures of the marks of a route.
#pragma once

#include <memory>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Source/UI/Parts/MarkPlacement.hpp"

namespace orivanta {

/// A symbol with its text, which may be null, as a look has them. The marked place is in the middle
/// of the picture. `scale` pixels per point.
std::shared_ptr<const graphics::Image> makeMarkImage(
    const MarkLook& look, graphics::Color color, const std::shared_ptr<const graphics::Image>& text,
    double scale);

}  // namespace orivanta
