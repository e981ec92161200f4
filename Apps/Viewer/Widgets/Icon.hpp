// Small line drawings.
#pragma once

#include <memory>
#include <vector>

#include "Apps/Viewer/Theme.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// A line through points. Icons are drawn on a square of side 24, with y downward.
using Stroke = std::vector<graphics::Point>;

/// A drawing of lines with round ends.
struct Icon {
  std::vector<Stroke> strokes;
  double lineWidth = 2.6;  ///< in units of the square
};

/// Draws an icon. `side` is in points, `scale` in pixels per point; both must be greater than 0.
std::shared_ptr<const graphics::Image> drawIcon(const Icon& icon, graphics::Color color,
                                                double side, double scale);

/// Shows an icon as large as its frame, which must be a square. Receives no touches.
class IconView : public view::View {
 public:
  IconView(Icon icon, theme::Paint color);

  void setIcon(Icon icon);
  void setColor(theme::Paint color) { color_ = color; }
  void draw(view::Canvas& canvas) override;

 private:
  Icon icon_;
  theme::Paint color_;
  std::shared_ptr<const graphics::Image> image_;  // null until it is drawn
  double side_ = 0;                               // of the image
  graphics::Color imageColor_;
};

/// Returns the image of a disc with a white border, for a position on a map. `side` is in points,
/// `scale` in pixels per point.
std::shared_ptr<const graphics::Image> drawDot(graphics::Color color, double side, double scale);

}  // namespace orivanta::viewer
