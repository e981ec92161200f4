#include "Apps/Viewer/Widgets/List.hpp"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"

namespace orivanta::viewer {

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
  textScale_ = theme::look().textScale;
  ends_.resize(source_.heights.size());
  std::partial_sum(source_.heights.begin(), source_.heights.end(), ends_.begin());
  offset_ = 0;
  marked_.reset();
  focused_.reset();
  arrange();
}

double List::heightWithin(double most) const {
  const auto end = std::upper_bound(ends_.begin(), ends_.end(), most);
  if (end != ends_.begin()) return *(end - 1);
  return ends_.empty() ? 0 : std::max(0.0, most);
}

// Estimates the heights of all rows after the size of text has changed.
void List::followTextSize() {
  const double scale = theme::look().textScale;
  if (scale == textScale_) return;
  for (double& end : ends_) end *= scale / textScale_;
  textScale_ = scale;
}

double List::heightWithin(double most, double width) {
  followTextSize();
  for (std::size_t row = 0; row < ends_.size() && topOf(row) < most; ++row) measure(row, width);
  return heightWithin(most);
}

// Corrects the height of a row, and the places of those below it.
void List::measure(std::size_t row, double width) {
  const double change = rowAt(row).heightFor(width) - (ends_[row] - topOf(row));
  if (change == 0) return;
  for (std::size_t below = row; below < ends_.size(); ++below) ends_[below] += change;
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

// --- Keyboard

void List::focus() {
  if (focused_) return focusRow(focused_);
  if (marked_) return focusRow(marked_);
  const auto first = std::upper_bound(ends_.begin(), ends_.end(), offset_) - ends_.begin();
  focusRow(markableFrom(static_cast<std::size_t>(first), 1));
}

void List::focusRow(std::optional<std::size_t> row) {
  focused_ = row;
  if (row && *row < ends_.size()) reveal(*row);
}

bool List::handleKey(const KeyPress& press) {
  if (!focused_ || ends_.empty()) return false;
  const auto from = [&](std::size_t row, int direction) {
    if (const auto next = markableFrom(row, direction)) focusRow(next);
    return true;
  };
  switch (press.key) {
    case Key::up:
      return *focused_ == 0 || from(*focused_ - 1, -1);
    case Key::down:
      return from(*focused_ + 1, 1);
    case Key::home:
      return from(0, 1);
    case Key::end:
      return from(ends_.size() - 1, -1);
    case Key::enter:
    case Key::space:
      if (const auto row = inSight_.find(*focused_); row != inSight_.end()) row->second->activate();
      return true;
    default:
      return false;
  }
}

std::optional<graphics::Rect> List::focusedRect() const {
  if (!focused_ || *focused_ >= ends_.size()) return std::nullopt;
  const double top = std::max(0.0, topOf(*focused_) - offset_);
  const double bottom = std::min(bounds().size.height, ends_[*focused_] - offset_);
  return graphics::Rect{{0, top}, {bounds().size.width, std::max(0.0, bottom - top)}};
}

// --- Rows

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
  followTextSize();
  const graphics::Size size = bounds().size;
  offset_ = std::clamp(offset_, 0.0, std::max(0.0, contentHeight() - size.height));
  const auto bottom = offset_ + size.height;
  const auto first = static_cast<std::size_t>(
      std::upper_bound(ends_.begin(), ends_.end(), offset_) - ends_.begin());
  std::size_t last = first;
  for (; last < ends_.size() && topOf(last) < bottom; ++last) {
    if (size.width > 0) measure(last, size.width);
    rowAt(last).setHidden(false);
    rowAt(last).setFrame({{0, topOf(last) - offset_}, {size.width, ends_[last] - topOf(last)}});
  }
  drop(0, first);
  drop(last, ends_.size());
}

void List::draw(view::Canvas& canvas) {
  View::draw(canvas);
  canvas.clip(bounds());
  const double content = contentHeight();
  const double height = bounds().size.height;
  if (content <= height + 1) return;
  const double thumb = std::max(24.0, height * height / content);
  const double top = (height - thumb) * offset_ / (content - height);
  canvas.fill(directed(*this, {{bounds().size.width - 6, top}, {3, thumb}}), theme::border, 1.5);
}

}  // namespace orivanta::viewer
