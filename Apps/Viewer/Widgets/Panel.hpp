// A sheet of paper over the map.
#pragma once

#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// White with round corners, a soft border and a shadow. Keeps touches from what lies below.
class Panel : public view::View {
 public:
  void draw(view::Canvas& canvas) override;
};

/// Draws paper with a border and a shadow.
void drawPaper(view::Canvas& canvas, const graphics::Rect& rect, double radius);

}  // namespace orivanta::viewer
