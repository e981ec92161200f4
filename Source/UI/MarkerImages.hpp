// Ready-made images and markers.
#pragma once

#include <memory>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Source/UI/MapViewMarker2D.hpp"

namespace orivanta {

/// Returns the image of a pin whose tip is at the center; the lower half is empty, so that a marker
/// with this image points at its position. `height` is the height of the pin in points, `scale` is
/// in pixels per point; both must be greater than 0. Any thread.
ORIVANTA_API std::shared_ptr<const graphics::Image> makePinImage(graphics::Color color,
                                                                 double height, double scale);

/// Returns a style for dark text with a white outline, which is legible on any floor.
ORIVANTA_API graphics::TextStyle labelStyle(double fontSize = 13.0);

/// Returns a marker that shows a text in any script and is hidden when it collides with others. It
/// has the size of its image. Returns null if the text has no visible characters. Any thread.
ORIVANTA_API std::shared_ptr<MapViewMarker2D> makeLabelMarker(std::string_view text,
                                                              const graphics::TextStyle& style,
                                                              double scale);

/// Returns a marker that shows an image in the image's size. It is not hidden when it collides with
/// others. Returns null if the image is null. Any thread.
ORIVANTA_API std::shared_ptr<MapViewMarker2D> makeImageMarker(
    std::shared_ptr<const graphics::Image> image);

/// Returns a marker with a pin on its position and, if the text has visible characters, the text
/// below it. It is not hidden when it collides with others. Any thread.
ORIVANTA_API std::shared_ptr<MapViewMarker2D> makePinMarker(graphics::Color color, double height,
                                                            std::string_view text,
                                                            const graphics::TextStyle& style,
                                                            double scale);

}  // namespace orivanta
