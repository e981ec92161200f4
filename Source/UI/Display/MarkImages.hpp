// Creates the images of the marks of a route.
// Private header.
#pragma once

#include <memory>
#include <string>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Source/UI/Display/MarkPlacement.hpp"

namespace orivanta {

/// What a mark shows.
struct MarkContent {
  graphics::Color color;                                  ///< of the symbol
  std::string number{};                                   ///< in the symbol; may be empty
  std::shared_ptr<const graphics::Image> text = nullptr;  ///< beside the symbol; may be null
};

/// Returns an image of a look's symbol, with the text on the side that the look selects. The marked
/// place is at the center of the image. `scale` is in pixels per point.
std::shared_ptr<const graphics::Image> makeMarkImage(const MarkLook& look,
                                                     const MarkContent& content, double scale);

}  // namespace orivanta
