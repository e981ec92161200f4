#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

bool isRightToLeft(const view::View& view) {
  const auto* root = dynamic_cast<const DirectedRoot*>(&view::topmostView(view));
  return root != nullptr && root->isRightToLeft();
}

graphics::Rect directed(const view::View& view, graphics::Rect rect) {
  if (isRightToLeft(view)) rect.origin.x = view.bounds().size.width - rect.maxX();
  return rect;
}

void directChildren(const view::View& view, double width) {
  if (!isRightToLeft(view)) return;
  for (const auto& child : view.subviews()) {
    graphics::Rect frame = child->frame();
    frame.origin.x = width - frame.maxX();
    child->setFrame(frame);
  }
}

}  // namespace orivanta::viewer
