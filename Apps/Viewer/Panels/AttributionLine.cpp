#include "Apps/Viewer/Panels/AttributionLine.hpp"

#include <algorithm>
#include <utility>

#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double textSize = 11;  // points
constexpr double side = 7;       // beside the text
constexpr double edge = 5;       // above and below a single line, together
constexpr double mostWidth = 640;
constexpr float paperAlpha = 0.88F;

}  // namespace

AttributionLine::AttributionLine(std::string text)
    : text_(std::make_shared<Label>(LabelStyle{.size = textSize}, std::move(text))) {
  addSubview(text_);
}

graphics::Size AttributionLine::arrange(graphics::Size room) {
  const double most = std::max(1.0, std::min(mostWidth, room.width) - 2 * side);
  text_->setLines(1);
  const double line = text_->fitting(most).height;
  if (isOpen_) text_->setLines(std::max(1, static_cast<int>((room.height - 2 * side) / line)));
  const graphics::Size text = text_->fitting(most);
  // An opened text that fits into one line looks the same as when it is closed.
  paperHeight_ = isOpen_ && text.height > 1.5 * line ? text.height + 2 * side : line + edge;
  const double width = std::min(text.width, most);
  const double height = std::max(paperHeight_, theme::controlSize);
  text_->setFrame({{side, height - paperHeight_}, {width, paperHeight_}});
  return {std::max(width + 2 * side, theme::controlSize), height};
}

void AttributionLine::draw(view::Canvas& canvas) {
  graphics::Color paper = theme::paper;
  paper.alpha = isOpen_ || isPressed() ? 1 : paperAlpha;
  const graphics::Size size = bounds().size;
  canvas.fill({{0, size.height - paperHeight_}, {size.width, paperHeight_}}, paper, 6);
}

}  // namespace orivanta::viewer
