#include "Apps/Viewer/Panels/HeadingRow.hpp"

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double arrowWidth = 22;  // points
constexpr double groupTop = 8;
constexpr double mostTrailing = 160;

LabelStyle titleStyle(HeadingLook look) {
  if (look == HeadingLook::back) return {.size = theme::textSize, .bold = true};
  return {.size = theme::smallSize, .bold = true, .color = theme::accent};
}

LabelStyle trailingStyle(HeadingLook look) {
  const bool isBack = look == HeadingLook::back;
  return {.size = theme::smallSize,
          .color = isBack ? theme::faint : theme::accent,
          .alignment = Alignment::trailing};
}

}  // namespace

HeadingRow::HeadingRow(HeadingLook look, const std::string& title, const std::string& trailing)
    : Row(look == HeadingLook::back ? backHeight : headingHeight),
      look_(look),
      arrow_(std::make_shared<Label>(LabelStyle{.size = 24, .color = theme::accent})),
      title_(std::make_shared<Label>(titleStyle(look), title)),
      trailing_(std::make_shared<Label>(trailingStyle(look), trailing)) {
  for (const auto& label : {arrow_, title_, trailing_}) addSubview(label);
}

void HeadingRow::draw(view::Canvas& canvas) {
  Row::draw(canvas);
  const graphics::Size size = bounds().size;
  const bool isBack = look_ == HeadingLook::back;
  const double top = isBack ? 0 : groupTop;
  const double height = size.height - top;
  const double left = theme::padding + (isBack ? arrowWidth : 0);
  const double trailing =
      trailing_->text().empty() ? 0 : trailing_->fitting(mostTrailing).width + 10;
  // Arrows are not mirrored with the text.
  if (isBack) arrow_->setText(isRightToLeft(*this) ? "\u203A" : "\u2039");
  arrow_->setFrame({{theme::padding, 0}, {arrowWidth, height - 4}});
  title_->setFrame({{left, top}, {size.width - left - theme::padding - trailing, height}});
  trailing_->setFrame({{size.width - theme::padding - trailing, top}, {trailing, height}});
  for (const auto& label : {arrow_, title_, trailing_})
    label->setFrame(directed(*this, label->frame()));
}

}  // namespace orivanta::viewer
