#include "Apps/Viewer/Widgets/Panel.hpp"

#include "Apps/Viewer/Theme.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

graphics::Rect grown(const graphics::Rect& rect, double by) {
  return {{rect.minX() - by, rect.minY() - by},
          {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

}  // namespace

void drawPaper(view::Canvas& canvas, const graphics::Rect& rect, double radius) {
  constexpr int rings = 7;
  graphics::Rect lowered = rect;
  lowered.origin.y += 3;
  for (int ring = rings; ring > 0; --ring)
    canvas.fill(grown(lowered, ring * 1.6), {0.09F, 0.11F, 0.16F, 0.010F}, radius + ring * 1.6);
  canvas.fill(grown(rect, 1), theme::border, radius + 1);
  canvas.fill(rect, theme::paper, radius);
}

void drawControlGround(view::Canvas& canvas, const graphics::Rect& rect, bool isPressed,
                       double radius) {
  const bool hasBorder = theme::look().hasHighContrast;
  if (hasBorder) canvas.fill(rect, theme::border, radius);
  const double inset = hasBorder ? 1 : 0;
  canvas.fill(grown(rect, -inset), isPressed ? theme::accentTint : theme::backdrop, radius - inset);
}

void Panel::draw(view::Canvas& canvas) {
  if (!flat_) drawPaper(canvas, bounds(), theme::radius);
}

}  // namespace orivanta::viewer
