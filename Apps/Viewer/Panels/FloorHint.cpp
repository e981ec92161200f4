#include "Apps/Viewer/Panels/FloorHint.hpp"

#include "Source/Guidance/Floors.hpp"

namespace orivanta::viewer {

FloorHint::FloorHint(const guidance::InterfaceTexts& texts)
    : texts_(texts), button_(std::make_shared<Button>(ButtonLook::plain, "")) {
  button_->action = forward(action);
  addSubview(button_);
  setHidden(true);
}

graphics::Size FloorHint::show(const Map& floor) {
  button_->setText(
      texts_.text("interface.place.elsewhere", {{"floor", texts_.name(floorName(floor))}}));
  const graphics::Size size{button_->fittingWidth(), theme::control()};
  button_->setFrame({{0, 0}, size});
  return size;
}

}  // namespace orivanta::viewer
