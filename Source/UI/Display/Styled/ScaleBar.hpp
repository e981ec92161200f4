// A bar that shows a length on the ground.
#pragma once

#include <memory>
#include <string>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// A length that a bar shows.
struct BarLength {
  double points = 0;  ///< length of the bar; 0 if no length fits
  std::string text;   ///< such as "20 m"
};

/// Returns the longest length of 1, 2 or 5 times a power of ten that has at most `mostPoints`
/// points.
BarLength barLength(double pointsPerMeter, double mostPoints);

/// Arranges and draws the bar. Used within a transaction.
class ScaleBar {
 public:
  /// Arranges the bar for the next call of `draw`. `corner` is its lower left corner, `scale` is in
  /// pixels per point. Returns what it covers, which is empty if there is no bar.
  graphics::Rect arrange(graphics::Point corner, double pointsPerMeter, const MapTheme& theme,
                         double scale);

  void draw(view::Canvas& canvas, const MapTheme& theme) const;

  /// Draws the text again, for another theme.
  void clear() { text_.clear(); }

 private:
  graphics::Rect bar_;
  graphics::Rect textRect_;
  std::string text_;  // of the image
  double scale_ = 0;  // of the image
  std::shared_ptr<const graphics::Image> image_;
};

}  // namespace orivanta
