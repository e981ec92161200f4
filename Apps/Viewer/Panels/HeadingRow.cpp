#include "Apps/Viewer/Panels/HeadingRow.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double arrowWidth = 22;  // points
constexpr double groupTop = 8;
constexpr double mostTrailingShare = 0.4;  // of the width
constexpr double edge = 6;                 // above a title, and below it

LabelStyle titleStyle(HeadingLook look) {
  if (look == HeadingLook::back) return {.size = theme::textSize, .bold = true, .lines = 0};
  return {.size = theme::smallSize, .bold = true, .color = theme::accent, .lines = 0};
}

LabelStyle trailingStyle(HeadingLook look) {
  const bool isBack = look == HeadingLook::back;
  return {.size = theme::smallSize,
          .color = isBack ? theme::faint : theme::accent,
          .alignment = Alignment::trailing,
          .lines = 0};
}

}  // namespace

HeadingRow::HeadingRow(HeadingLook look, const std::string& title, const std::string& trailing)
    : Row(look == HeadingLook::back ? backHeight : headingHeight),
      look_(look),
      arrow_(
          std::make_shared<Label>(LabelStyle{.size = 24, .color = theme::accent, .isSign = true})),
      title_(std::make_shared<Label>(titleStyle(look), title)),
      trailing_(std::make_shared<Label>(trailingStyle(look), trailing)) {
  for (const auto& label : {arrow_, title_, trailing_}) addSubview(label);
}

double HeadingRow::trailingWidth(double width) {
  if (trailing_->text().empty()) return 0;
  return trailing_->fitting(mostTrailingShare * width).width + 10;
}

double HeadingRow::titleWidth(double width) {
  const double arrow = look_ == HeadingLook::back ? arrowWidth : 0;
  return std::max(1.0, width - 2 * theme::padding - arrow - trailingWidth(width));
}

double HeadingRow::heightFor(double width) {
  const bool isBack = look_ == HeadingLook::back;
  const double least = isBack ? backHeight : action ? theme::controlSize : headingHeight;
  const double texts = std::max(title_->fitting(titleWidth(width)).height,
                                trailing_->fitting(std::max(1.0, trailingWidth(width))).height);
  return std::max(least, texts + (isBack ? 0 : groupTop) + 2 * edge);
}

void HeadingRow::draw(view::Canvas& canvas) {
  Row::draw(canvas);
  const graphics::Size size = bounds().size;
  const bool isBack = look_ == HeadingLook::back;
  const double top = isBack ? 0 : groupTop;
  const double height = size.height - top;
  const double left = theme::padding + (isBack ? arrowWidth : 0);
  const double trailing = trailingWidth(size.width);
  // Arrows are not mirrored with the text.
  if (isBack) arrow_->setText(isRightToLeft(*this) ? "\u203A" : "\u2039");
  arrow_->setFrame({{theme::padding, 0}, {arrowWidth, height - 4}});
  title_->setFrame({{left, top}, {titleWidth(size.width), height}});
  trailing_->setFrame({{size.width - theme::padding - trailing, top}, {trailing, height}});
  for (const auto& label : {arrow_, title_, trailing_})
    label->setFrame(directed(*this, label->frame()));
}

}  // namespace orivanta::viewer
