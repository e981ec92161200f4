#include "Apps/Viewer/Widgets/List.hpp"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"

namespace orivanta::viewer {

namespace {

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
      indent_(text.indent),
      height_(heightWith(text.detail)) {
  for (const auto& label : {title_, detail_, trailing_}) addSubview(label);
}

double Row::heightWith(std::string_view detail) {
  return detail.empty() ? plainHeight : detailHeight;
}

Row::Row(double height) : Row(RowText{}) { height_ = height; }

void Row::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  if (isPressed() || marked_)
    canvas.fill({{6, 2}, {size.width - 12, size.height - 4}},
                marked_ ? theme::accentTint : theme::pressed, 8);
  double left = theme::padding + indent_;
  if (dot_) {
    canvas.fill(directed(*this, {{left, size.height / 2 - 5}, {10, 10}}), *dot_, 5);
    left += 22;
  }
  const double trailing = trailing_->text().empty() ? 0 : trailing_->fitting(160).width + 10;
  const double width = size.width - left - theme::padding - trailing;
  const bool isPlain = detail_->text().empty();
  title_->setFrame({{left, isPlain ? 0.0 : 8.0}, {width, isPlain ? size.height : 22}});
  detail_->setFrame({{left, 30}, {width, isPlain ? 0.0 : 18}});
  trailing_->setFrame({{size.width - theme::padding - trailing, 0}, {trailing, size.height}});
  for (const auto& label : {title_, detail_, trailing_})
    label->setFrame(directed(*this, label->frame()));
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
  RowSource source;
  for (const auto& row : rows) source.heights.push_back(row->height());
  source.make = [rows = std::move(rows)](std::size_t index) { return rows[index]; };
  setSource(std::move(source));
}

void List::setSource(RowSource source) {
  drop(0, ends_.size());
  source_ = std::move(source);
  ends_.resize(source_.heights.size());
  std::partial_sum(source_.heights.begin(), source_.heights.end(), ends_.begin());
  offset_ = 0;
  marked_.reset();
  arrange();
}

double List::heightWithin(double most) const {
  const auto end = std::upper_bound(ends_.begin(), ends_.end(), most);
  return end == ends_.begin() ? 0 : *(end - 1);
}

void List::scrollBy(double points) {
  const double most = std::max(0.0, contentHeight() - bounds().size.height);
  offset_ = std::clamp(offset_ + points, 0.0, most);
  arrange();
}

void List::reveal(std::size_t row) {
  const double height = bounds().size.height;
  if (topOf(row) < offset_) scrollBy(topOf(row) - offset_);
  if (ends_[row] > offset_ + height) scrollBy(ends_[row] - offset_ - height);
}

void List::mark(std::optional<std::size_t> row) {
  marked_ = row;
  for (const auto& [index, shown] : inSight_) shown->setMarked(row == index);
  if (row && *row < ends_.size()) reveal(*row);
}

// Returns the nearest row that can be marked, from `row` on in a direction (1 or -1).
std::optional<std::size_t> List::markableFrom(std::size_t row, int direction) const {
  while (row < ends_.size() && !source_.canBeMarked(row))
    row = direction < 0 && row == 0 ? ends_.size() : row + static_cast<std::size_t>(direction);
  return row < ends_.size() ? std::optional(row) : std::nullopt;
}

void List::moveMark(int down) {
  if (!marked_) {
    if (const auto first = markableFrom(0, 1)) mark(first);
    return;
  }
  const int direction = down < 0 ? -1 : 1;
  std::size_t at = *marked_;
  for (int steps = std::abs(down); steps > 0; --steps) {
    if (direction < 0 && at == 0) break;
    const auto next = markableFrom(at + static_cast<std::size_t>(direction), direction);
    if (!next) break;
    at = *next;
  }
  mark(at);
}

void List::drop(std::size_t first, std::size_t last) {
  const auto end = inSight_.lower_bound(last);
  for (auto entry = inSight_.lower_bound(first); entry != end; entry = inSight_.erase(entry)) {
    entry->second->setHidden(true);
    entry->second->removeFromSuperview();
  }
}

Row& List::rowAt(std::size_t index) {
  std::shared_ptr<Row>& row = inSight_[index];
  if (!row) {
    row = source_.make(index);
    row->setMarked(marked_ == index);
    addSubview(row);
  }
  return *row;
}

void List::arrange() {
  const graphics::Size size = bounds().size;
  offset_ = std::clamp(offset_, 0.0, std::max(0.0, contentHeight() - size.height));
  const auto bottom = offset_ + size.height;
  const auto first = static_cast<std::size_t>(
      std::upper_bound(ends_.begin(), ends_.end(), offset_) - ends_.begin());
  std::size_t last = first;
  while (last < ends_.size() && topOf(last) < bottom) ++last;
  drop(0, first);
  drop(last, ends_.size());
  for (std::size_t index = first; index < last; ++index) {
    Row& row = rowAt(index);
    const double height = row.height();
    const double top = topOf(index) - offset_;
    row.setFrame({{0, top}, {size.width, height}});
    const double outside = std::max({0.0, -top, top + height - size.height}) / height;
    row.setAlpha(1 - outside / fadeShare);
    row.setHidden(row.alpha() <= 0);
  }
}

void List::draw(view::Canvas& canvas) {
  View::draw(canvas);
  const double content = contentHeight();
  const double height = bounds().size.height;
  if (content <= height + 1) return;
  const double thumb = std::max(24.0, height * height / content);
  const double top = (height - thumb) * offset_ / (content - height);
  canvas.fill(directed(*this, {{bounds().size.width - 6, top}, {3, thumb}}), theme::hairline, 1.5);
}

}  // namespace orivanta::viewer
