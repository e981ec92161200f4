#include "Apps/Viewer/Panels/ConnectionNote.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

namespace {

constexpr double mostTextWidth = 460;  // points
constexpr double edge = 6;             // above the button, and below it

}  // namespace

ConnectionNote::ConnectionNote(const guidance::InterfaceTexts& texts)
    : text_(std::make_shared<Label>(LabelStyle{.lines = 0})),
      retry_(std::make_shared<Button>(ButtonLook::plain, texts.text("interface.retry"))) {
  addSubview(text_);
  addSubview(retry_);
  retry_->action = forward(retried);
}

graphics::Size ConnectionNote::arrange(graphics::Size room) {
  constexpr double padding = theme::padding;
  retry_->setHidden(!retried);
  const double button = retried ? retry_->fittingWidth() : padding;
  const double most = room.width - 2 * theme::margin - padding - button;
  const graphics::Size text =
      text_->fitting(std::clamp(most, 80.0, theme::withText(mostTextWidth)));
  const double height = std::max<double>(text.height, theme::controlSize) + 2 * edge;
  text_->setFrame({{padding, (height - text.height) / 2}, text});
  retry_->setFrame(
      {{padding + text.width, (height - theme::controlSize) / 2}, {button, theme::controlSize}});
  const double width = padding + text.width + button;
  directChildren(*this, width);
  return {width, height};
}

}  // namespace orivanta::viewer
