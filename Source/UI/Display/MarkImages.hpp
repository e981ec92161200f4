// Creates the images of the marks of a route.
// Private header.
#pragma once

#include <memory>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Source/UI/Display/MarkPlacement.hpp"

namespace orivanta {

/// Returns an image of a look's symbol, with its text on the side that the look selects. `text` may
/// be null. The marked place is at the center of the image. `scale` is in pixels per point.
std::shared_ptr<const graphics::Image> makeMarkImage(
    const MarkLook& look, graphics::Color color, const std::shared_ptr<const graphics::Image>& text,
    double scale);

}  // namespace orivanta
