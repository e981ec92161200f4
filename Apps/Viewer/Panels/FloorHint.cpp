#include "Apps/Viewer/Panels/FloorHint.hpp"

#include <algorithm>

#include "Source/Guidance/Floors.hpp"

namespace orivanta::viewer {

FloorHint::FloorHint(const guidance::InterfaceTexts& texts)
    : texts_(texts), button_(std::make_shared<Button>(ButtonLook::plain, "")) {
  button_->action = forward(action);
  addSubview(button_);
  setHidden(true);
}

graphics::Size FloorHint::show(const Map& floor, double mostWidth) {
  button_->setText(
      texts_.text("interface.place.elsewhere", {{"floor", texts_.name(floorName(floor))}}));
  const double width = std::min(button_->fittingWidth(), mostWidth);
  const graphics::Size size{width, button_->heightFor(width)};
  button_->setFrame({{0, 0}, size});
  return size;
}

}  // namespace orivanta::viewer
