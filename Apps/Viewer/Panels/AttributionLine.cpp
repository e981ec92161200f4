#include "Apps/Viewer/Panels/AttributionLine.hpp"

#include <algorithm>
#include <utility>

#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double textSize = 11;  // points
constexpr double lineHeight = 15;
constexpr double side = 7;  // beside the text
constexpr double mostWidth = 640;
constexpr float paperAlpha = 0.82F;

}  // namespace

AttributionLine::AttributionLine(std::string text)
    : text_(std::make_shared<Label>(LabelStyle{.size = textSize}, std::move(text))) {
  addSubview(text_);
}

graphics::Size AttributionLine::arrange(graphics::Size room) {
  const double most = std::max(1.0, std::min(mostWidth, room.width) - 2 * side);
  const int lines = std::max(1, static_cast<int>((room.height - 2 * side) / lineHeight));
  text_->setLines(isOpen_ ? lines : 1);
  const graphics::Size text = text_->fitting(most);
  // An opened text that fits into one line looks the same as when it is closed.
  const double height =
      isOpen_ && text.height > closedHeight ? text.height + 2 * side : closedHeight;
  const double width = std::min(text.width, most);
  text_->setFrame({{side, 0}, {width, height}});
  return {width + 2 * side, height};
}

void AttributionLine::draw(view::Canvas& canvas) {
  graphics::Color paper = theme::paper;
  paper.alpha = isOpen_ || isPressed() ? 1 : paperAlpha;
  canvas.fill(bounds(), paper, 6);
}

}  // namespace orivanta::viewer
