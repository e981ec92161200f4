#include "Apps/Viewer/Panels/MessagePanel.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

MessagePanel::MessagePanel(const guidance::InterfaceTexts& texts)
    : title_(
          std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 0})),
      detail_(std::make_shared<Label>(LabelStyle{.color = theme::faint, .lines = 0})),
      retry_(std::make_shared<Button>(ButtonLook::filled, texts.text("interface.retry"))),
      other_(std::make_shared<Button>(ButtonLook::tinted, "")) {
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{title_, detail_, retry_, other_})
    addSubview(part);
  retry_->action = [this] {
    if (retried) retried();
  };
  other_->action = [this] {
    if (dismissed) dismissed();
  };
}

void MessagePanel::show(const Problem& problem, const std::string& otherWay) {
  title_->setText(problem.title);
  detail_->setText(problem.detail);
  other_->setText(otherWay);
  other_->setHidden(otherWay.empty());
}

graphics::Size MessagePanel::arrange(graphics::Size room) {
  constexpr double gap = 10;
  constexpr double padding = theme::padding + 6;
  const double width = std::min(theme::withText(440), room.width - 2 * theme::margin);
  const double inner = width - 2 * padding;
  double top = padding;
  for (const auto& label : {title_, detail_}) {
    const double height = label->fitting(inner).height;
    label->setFrame({{padding, top}, {inner, height}});
    top += height + gap;
  }
  top += gap;
  // The buttons are beside each other if there is room, or else below each other.
  double right = width - padding;
  double height = 0;
  for (const auto& button : {retry_, other_}) {
    if (button->isHidden()) continue;
    const double buttonWidth = std::min(button->fittingWidth(), inner);
    if (right - buttonWidth < padding) {
      right = width - padding;
      top += height + gap;
    }
    height = button->heightFor(buttonWidth);
    button->setFrame({{right - buttonWidth, top}, {buttonWidth, height}});
    right -= buttonWidth + gap;
  }
  directChildren(*this, width);
  return {width, top + height + padding};
}

}  // namespace orivanta::viewer
