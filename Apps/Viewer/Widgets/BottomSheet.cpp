#include "Apps/Viewer/Widgets/BottomSheet.hpp"

#include <memory>
#include <utility>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"

namespace orivanta::viewer {

namespace {

constexpr graphics::Size grip{44, 5};  // points
constexpr double gripBottom = 9;       // below the grip

bool isInList(view::View& view, graphics::Point point) {
  for (const view::View* at = view.viewAt(point).get(); at != nullptr && at != &view;
       at = at->superview())
    if (dynamic_cast<const List*>(at) != nullptr) return true;
  return false;
}

}  // namespace

void SheetPaper::draw(view::Canvas& canvas) {
  graphics::Rect paper = bounds();
  paper.size.height += 2 * theme::radius;
  drawPaper(canvas, paper, theme::radius);
}

void makeDraggable(view::View& view, std::function<void(double up)> dragged,
                   std::function<void()> released) {
  const auto pan = std::make_shared<view::PanGestureRecognizer>();
  const auto scrolls = std::make_shared<bool>(false);
  pan->addTarget("dragged", [&view, scrolls, dragged = std::move(dragged),
                             released = std::move(released)](view::GestureRecognizer& sender) {
    if (sender.state() == view::GestureState::began)
      *scrolls = isInList(view, sender.location(view));
    if (*scrolls) return;
    const double down = static_cast<view::PanGestureRecognizer&>(sender).translation().y;
    if (sender.state() == view::GestureState::changed) dragged(-down);
    if (!sender.isRunning()) released();
  });
  view.addGestureRecognizer(pan);
}

SheetHandle::SheetHandle() {
  makeDraggable(
      *this,
      [this](double up) {
        if (dragged) dragged(up);
      },
      [this] {
        if (released) released();
      });
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
