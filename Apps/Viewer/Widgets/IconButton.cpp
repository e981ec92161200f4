#include "Apps/Viewer/Widgets/IconButton.hpp"

#include "Apps/Viewer/Theme.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double discShare = 36.0 / theme::controlSize;  // of the button's side
constexpr double iconShare = 18.0 / theme::controlSize;

graphics::Rect centered(graphics::Size room, double side) {
  return {{(room.width - side) / 2, (room.height - side) / 2}, {side, side}};
}

}  // namespace

IconButton::IconButton(Icon icon)
    : icon_(std::make_shared<IconView>(std::move(icon), theme::paper)) {
  addSubview(icon_);
}

void IconButton::draw(view::Canvas& canvas) {
  constexpr graphics::Color shade{0, 0, 0, 0.2F};
  const double side = bounds().size.height;
  const double discSide = discShare * side;
  const graphics::Rect disc = centered(bounds().size, discSide);
  canvas.fill(disc, theme::accent, discSide / 2);
  if (isPressed()) canvas.fill(disc, shade, discSide / 2);
  icon_->setFrame(centered(bounds().size, iconShare * side));
}

}  // namespace orivanta::viewer
