// A panel over the map.
#pragma once

#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// White with rounded corners, a soft border and a shadow. Touches do not reach the views below it.
class Panel : public view::View {
 public:
  void draw(view::Canvas& canvas) override;
};

/// Draws a white rectangle with rounded corners, a border and a shadow.
void drawPaper(view::Canvas& canvas, const graphics::Rect& rect, double radius);

}  // namespace orivanta::viewer
