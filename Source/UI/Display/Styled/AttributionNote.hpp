// Draws the attribution of a venue on a styled map.
#pragma once

#include <memory>
#include <string>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Small text on a ground that is almost opaque. Used within a transaction.
class AttributionNote {
 public:
  void setText(std::string text);

  /// Arranges the text at the lower left of a rectangle, with at most its width and a third of its
  /// height; the rest of the text is cut. `scale`: pixels per point. Returns what it covers, which
  /// is empty if there is no text.
  graphics::Rect arrange(const graphics::Rect& room, const MapTheme& theme, double scale);

  void draw(view::Canvas& canvas, const MapTheme& theme) const;

  /// Draws the text again, for another theme.
  void clear() { scale_ = 0; }

 private:
  void drawImage(const graphics::Size& room, double scale, const MapTheme& theme);

  std::string text_;
  graphics::Rect rect_;  // what it covers
  graphics::Size room_;  // for which the image was drawn
  double scale_ = 0;     // of the image; 0 if it must be drawn
  std::shared_ptr<const graphics::Image> image_;
};

}  // namespace orivanta
