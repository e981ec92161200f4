// A panel over the map.
#pragma once

#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// Paper with rounded corners, a border and a shadow. Touches do not reach the views below it.
class Panel : public view::View {
 public:
  /// Whether to draw no paper, because the panel lies on another one.
  void setFlat(bool flat) { flat_ = flat; }
  void draw(view::Canvas& canvas) override;

 private:
  bool flat_ = false;
};

/// Draws a rectangle of paper with rounded corners, a border and a shadow.
void drawPaper(view::Canvas& canvas, const graphics::Rect& rect, double radius);

/// Draws the ground of a control on a panel. With high contrast, it has a border, because it has
/// the color of the panel then.
void drawControlGround(view::Canvas& canvas, const graphics::Rect& rect, bool isPressed,
                       double radius);

}  // namespace orivanta::viewer
