#include "Apps/Viewer/Widgets/List.hpp"

#include <algorithm>
#include <utility>

#include "Platform/View/Canvas.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"

namespace orivanta::viewer {

namespace {

constexpr double plainHeight = 44;  // points
constexpr double detailHeight = 56;
constexpr double fadeShare = 0.2;  // of a row's height, over which it fades

}  // namespace

Row::Row(const RowText& text)
    : title_(std::make_shared<Label>(LabelStyle{}, text.title)),
      detail_(std::make_shared<Label>(LabelStyle{.size = theme::smallSize, .color = theme::faint},
                                      text.detail)),
      trailing_(std::make_shared<Label>(
          LabelStyle{
              .size = theme::smallSize, .color = theme::faint, .alignment = Alignment::trailing},
          text.trailing)),
      dot_(text.dot),
      height_(text.detail.empty() ? plainHeight : detailHeight) {
  for (const auto& label : {title_, detail_, trailing_}) addSubview(label);
}

Row::Row(double height) : Row(RowText{}) { height_ = height; }

void Row::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  if (isPressed() || marked_)
    canvas.fill({{6, 2}, {size.width - 12, size.height - 4}},
                marked_ ? theme::accentTint : theme::pressed, 8);
  double left = theme::padding;
  if (dot_) {
    canvas.fill({{left, size.height / 2 - 5}, {10, 10}}, *dot_, 5);
    left += 22;
  }
  const double trailing = trailing_->text().empty() ? 0 : trailing_->fitting(160).width + 10;
  const double width = size.width - left - theme::padding - trailing;
  const bool isPlain = detail_->text().empty();
  title_->setFrame({{left, isPlain ? 0.0 : 8.0}, {width, isPlain ? size.height : 22}});
  detail_->setFrame({{left, 30}, {width, isPlain ? 0.0 : 18}});
  trailing_->setFrame({{size.width - theme::padding - trailing, 0}, {trailing, size.height}});
}

List::List() {
  const auto pan = std::make_shared<view::PanGestureRecognizer>();
  pan->addTarget("scrolled", [this](view::GestureRecognizer& sender) {
    const double translation = static_cast<view::PanGestureRecognizer&>(sender).translation().y;
    if (sender.state() == view::GestureState::changed) scrollBy(lastTranslation_ - translation);
    lastTranslation_ = sender.isRunning() ? translation : 0;
  });
  addGestureRecognizer(pan);
}

void List::setRows(std::vector<std::shared_ptr<Row>> rows) {
  for (const auto& row : rows_) row->removeFromSuperview();
  rows_ = std::move(rows);
  for (const auto& row : rows_) addSubview(row);
  offset_ = 0;
  marked_.reset();
  arrange();
}

double List::contentHeight() const {
  double height = 0;
  for (const auto& row : rows_) height += row->height();
  return height;
}

double List::heightWithin(double most) const {
  double height = 0;
  for (const auto& row : rows_) {
    if (height + row->height() > most) break;
    height += row->height();
  }
  return height;
}

void List::scrollBy(double points) {
  const double most = std::max(0.0, contentHeight() - bounds().size.height);
  offset_ = std::clamp(offset_ + points, 0.0, most);
  arrange();
}

void List::reveal(std::size_t row) {
  double top = 0;
  for (std::size_t i = 0; i < row; ++i) top += rows_[i]->height();
  const double bottom = top + rows_[row]->height();
  if (top < offset_) scrollBy(top - offset_);
  if (bottom > offset_ + bounds().size.height) scrollBy(bottom - offset_ - bounds().size.height);
}

void List::mark(std::optional<std::size_t> row) {
  marked_ = row;
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->setMarked(row == i);
  if (row && *row < rows_.size()) reveal(*row);
}

void List::moveMark(int down) {
  if (rows_.empty()) return;
  const int last = static_cast<int>(rows_.size()) - 1;
  const int wanted = marked_ ? static_cast<int>(*marked_) + down : 0;
  mark(static_cast<std::size_t>(std::clamp(wanted, 0, last)));
}

void List::arrange() {
  const graphics::Size size = bounds().size;
  offset_ = std::clamp(offset_, 0.0, std::max(0.0, contentHeight() - size.height));
  double top = -offset_;
  for (const auto& row : rows_) {
    const double height = row->height();
    row->setFrame({{0, top}, {size.width, height}});
    const double outside = std::max({0.0, -top, top + height - size.height}) / height;
    row->setAlpha(1 - outside / fadeShare);
    row->setHidden(row->alpha() <= 0);
    top += height;
  }
}

void List::draw(view::Canvas& canvas) {
  View::draw(canvas);
  const double content = contentHeight();
  const double height = bounds().size.height;
  if (content <= height + 1) return;
  const double thumb = std::max(24.0, height * height / content);
  const double top = (height - thumb) * offset_ / (content - height);
  canvas.fill({{bounds().size.width - 6, top}, {3, thumb}}, theme::hairline, 1.5);
}

}  // namespace orivanta::viewer
