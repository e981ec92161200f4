#include "Apps/Viewer/Panels/MessagePanel.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

MessagePanel::MessagePanel(const guidance::InterfaceTexts& texts)
    : title_(
          std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 3})),
      detail_(std::make_shared<Label>(LabelStyle{.color = theme::faint, .lines = 8})),
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
  constexpr double padding = theme::padding + 6;
  const double width = std::min(440.0, room.width - 2 * theme::margin);
  const double inner = width - 2 * padding;
  double top = padding;
  for (const auto& label : {title_, detail_}) {
    const double height = label->fitting(inner).height;
    label->setFrame({{padding, top}, {inner, height}});
    top += height + 10;
  }
  top += 10;
  const double otherWidth = other_->isHidden() ? 0 : other_->fittingWidth();
  const double retryWidth = retry_->fittingWidth();
  retry_->setFrame({{width - padding - retryWidth, top}, {retryWidth, theme::controlSize}});
  other_->setFrame(
      {{width - padding - retryWidth - 10 - otherWidth, top}, {otherWidth, theme::controlSize}});
  directChildren(*this, width);
  return {width, top + theme::controlSize + padding};
}

}  // namespace orivanta::viewer
