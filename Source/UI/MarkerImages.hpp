// Ready-made pictures for markers.
#pragma once

#include <memory>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Source/UI/MapViewMarker2D.hpp"

namespace orivanta {

/// A pin that points at the middle of the picture, whose lower half is empty: a marker with it
/// stands on its position. `height` is the pin's in points, `scale` pixels per point; both above 0.
/// Any thread.
ORIVANTA_API std::shared_ptr<const graphics::Image> makePinImage(graphics::Color color,
                                                                 double height, double scale);

/// Dark text with a white outline, legible on any floor.
ORIVANTA_API graphics::TextStyle labelStyle(double fontSize = 13.0);

/// A marker that shows a text in any script, as large as its picture, and gives way to others. Null
/// for a text without ink. Any thread.
ORIVANTA_API std::shared_ptr<MapViewMarker2D> makeLabelMarker(std::string_view text,
                                                              const graphics::TextStyle& style,
                                                              double scale);

/// The same, from any picture, which then gives way to none.
ORIVANTA_API std::shared_ptr<MapViewMarker2D> makeImageMarker(
    std::shared_ptr<const graphics::Image> image);

/// A marker with a pin on its position and, where the text has ink, the text below it. Gives way to
/// none. Any thread.
ORIVANTA_API std::shared_ptr<MapViewMarker2D> makePinMarker(graphics::Color color, double height,
                                                            std::string_view text,
                                                            const graphics::TextStyle& style,
                                                            double scale);

}  // namespace orivanta
