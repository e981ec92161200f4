#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double edge = 8;             // points above the texts of a row, and below them
constexpr double trailingShare = 0.4;  // of a row's width, at most
constexpr double dotSide = 10;
constexpr double dotWidth = 22;  // with the space after it
constexpr double trailingGap = 10;

}  // namespace

Row::Row(const RowText& text)
    : title_(std::make_shared<Label>(LabelStyle{.lines = 0}, text.title)),
      detail_(std::make_shared<Label>(
          LabelStyle{.size = theme::smallSize, .color = theme::faint, .lines = 0}, text.detail)),
      trailing_(std::make_shared<Label>(LabelStyle{.size = theme::smallSize,
                                                   .color = theme::faint,
                                                   .alignment = Alignment::trailing,
                                                   .lines = 0},
                                        text.trailing)),
      dot_(text.dot),
      indent_(text.indent),
      height_(heightWith(text.detail)) {
  for (const auto& label : {title_, detail_, trailing_}) addSubview(label);
}

double Row::heightWith(std::string_view detail) {
  return detail.empty() ? plainHeight : detailHeight;
}

Row::Row(double height) : Row(RowText{}) { height_ = height; }

double Row::height() const { return theme::withText(height_); }

Row::Columns Row::columnsFor(double width) {
  Columns columns;
  columns.left = theme::padding + indent_ + (dot_ ? dotWidth : 0);
  if (!trailing_->text().empty())
    columns.trailing = trailing_->fitting(trailingShare * width).width + trailingGap;
  columns.width = std::max(1.0, width - columns.left - theme::padding - columns.trailing);
  return columns;
}

double Row::heightFor(double width) {
  if (title_->text().empty()) return height();
  const Columns columns = columnsFor(width);
  double texts = title_->fitting(columns.width).height;
  if (!detail_->text().empty()) texts += detail_->fitting(columns.width).height;
  if (columns.trailing > 0) texts = std::max(texts, trailing_->fitting(columns.trailing).height);
  return std::max(height_, texts + 2 * edge);
}

void Row::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  if (isPressed() || marked_)
    canvas.fill({{6, 2}, {size.width - 12, size.height - 4}},
                marked_ ? theme::accentTint : theme::pressed, 8);
  if (title_->text().empty()) return;
  if (dot_)
    canvas.fill(
        directed(*this, {{theme::padding, (size.height - dotSide) / 2}, {dotSide, dotSide}}), *dot_,
        dotSide / 2);
  const Columns columns = columnsFor(size.width);
  const double title = title_->fitting(columns.width).height;
  const double detail = detail_->text().empty() ? 0 : detail_->fitting(columns.width).height;
  const double top = (size.height - title - detail) / 2;
  title_->setFrame({{columns.left, top}, {columns.width, title}});
  detail_->setFrame({{columns.left, top + title}, {columns.width, detail}});
  trailing_->setFrame(
      {{size.width - theme::padding - columns.trailing, 0}, {columns.trailing, size.height}});
  for (const auto& label : {title_, detail_, trailing_})
    label->setFrame(directed(*this, label->frame()));
}

}  // namespace orivanta::viewer
