#include "Apps/Viewer/Widgets/BottomSheet.hpp"

#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"

namespace orivanta::viewer {

namespace {

constexpr graphics::Size grip{44, 5};  // points
constexpr double gripBottom = 9;       // below the grip

}  // namespace

void SheetPaper::draw(view::Canvas& canvas) {
  graphics::Rect paper = bounds();
  paper.size.height += 2 * theme::radius;
  drawPaper(canvas, paper, theme::radius);
}

SheetHandle::SheetHandle() {
  const auto pan = std::make_shared<view::PanGestureRecognizer>();
  pan->addTarget("dragged", [this](view::GestureRecognizer& sender) {
    const double down = static_cast<view::PanGestureRecognizer&>(sender).translation().y;
    if (sender.state() == view::GestureState::changed && dragged) dragged(-down);
    if (!sender.isRunning() && released) released();
  });
  addGestureRecognizer(pan);
}

bool SheetHandle::handleKey(const KeyPress& press) {
  if (press.key != Key::up && press.key != Key::down) return false;
  if (moved) moved(press.key == Key::up ? 1 : -1);
  return true;
}

void SheetHandle::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  canvas.fill({{(size.width - grip.width) / 2, size.height - gripBottom - grip.height}, grip},
              isPressed() ? theme::accent : theme::border, grip.height / 2);
}

}  // namespace orivanta::viewer
