#include "Apps/Viewer/Widgets/TextField.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::size_t longestText = 200;  // bytes
constexpr double caretWidth = 2;          // points
constexpr double caretHeight = 20;
constexpr double leastPlaceholder = 0.7;  // of the size of the text

graphics::TextStyle styleOf(const graphics::Color& color) {
  graphics::TextStyle style;
  style.fontSize = theme::withText(theme::textSize);
  style.color = color;
  style.maximumLines = 1;
  style.wholeLines = true;
  return style;
}

// Returns the complete characters that are not control characters.
std::string typeable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    utf8proc_int32_t value = -1;
    const utf8proc_ssize_t length =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                         static_cast<utf8proc_ssize_t>(text.size()), &value);
    const auto bytes = static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 1));
    if (length > 0 && utf8proc_category(value) != UTF8PROC_CATEGORY_CC &&
        utf8proc_category(value) != UTF8PROC_CATEGORY_ZL &&
        utf8proc_category(value) != UTF8PROC_CATEGORY_ZP)
      result += text.substr(0, bytes);
    text.remove_prefix(bytes);
  }
  return result;
}

// Returns a range of columns of an image.
std::shared_ptr<const graphics::Image> part(const std::shared_ptr<const graphics::Image>& image,
                                            double left, double width) {
  if (!image) return nullptr;
  const auto column = [&](double points) {
    const double pixels = std::round(points * image->scale());
    return static_cast<std::size_t>(std::clamp<double>(pixels, 0, image->width()));
  };
  const std::size_t first = column(left);
  const std::size_t last = column(left + width);
  if (first == 0 && last == image->width()) return image;
  std::vector<std::uint8_t> pixels;
  for (std::size_t y = 0; y < image->height(); ++y) {
    const auto row = image->pixels().subspan((y * image->width() + first) * 4, (last - first) * 4);
    pixels.insert(pixels.end(), row.begin(), row.end());
  }
  return graphics::Image::make(static_cast<std::uint32_t>(last - first), image->height(),
                               std::move(pixels), image->scale());
}

}  // namespace

TextField::TextField(std::string placeholder) : placeholder_(std::move(placeholder)) { show(); }

void TextField::setText(std::string text) {
  text_ = std::move(text);
  caret_ = text_.size();
  composition_.clear();
  show();
}

void TextField::setPlaceholder(std::string placeholder) {
  placeholder_ = std::move(placeholder);
  show();
}

void TextField::setFocused(bool focused) {
  focused_ = focused;
  if (!focused) composition_.clear();
  show();
}

void TextField::insert(std::string_view text) {
  composition_.clear();
  std::string added = typeable(text);
  if (caret_ == 0) added.erase(0, std::min(added.find_first_not_of(' '), added.size()));
  const graphics::CaretLine characters(added, styleOf(theme::ink));
  std::size_t length = added.size();
  while (text_.size() + length > longestText && length > 0) length = characters.before(length);
  text_.insert(caret_, added, 0, length);
  caret_ += length;
  show();
  if (changed) changed();
}

void TextField::erase(std::size_t from, std::size_t to) {
  text_.erase(from, to - from);
  caret_ = from;
  show();
  if (changed) changed();
}

void TextField::eraseBack(bool word) {
  if (caret_ == 0 || !composition_.empty()) return;
  std::size_t from = word ? caret_ : line_->before(caret_);
  while (word && from > 0 && text_[from - 1] == ' ') --from;
  while (word && from > 0 && text_[from - 1] != ' ') --from;
  erase(from, caret_);
}

void TextField::eraseForward() {
  if (caret_ < text_.size() && composition_.empty()) erase(caret_, line_->after(caret_));
}

void TextField::moveCaret(CaretStep step) {
  if (text_.empty() || !composition_.empty()) return;
  if (step == CaretStep::left) caret_ = line_->leftOf(caret_);
  if (step == CaretStep::right) caret_ = line_->rightOf(caret_);
  if (step == CaretStep::start) caret_ = 0;
  if (step == CaretStep::end) caret_ = text_.size();
}

void TextField::placeCaret(double x) {
  if (!text_.empty() && composition_.empty()) caret_ = line_->placeAt(x - textLeft() + scroll_);
}

// Returns the left edge of the text in the field. A text that fits begins where lines begin.
double TextField::textLeft() const {
  const double free = bounds().size.width - (visible_ ? visible_->size().width : 0) - caretWidth;
  return isRightToLeft(*this) ? std::max(0.0, std::floor(free)) : 0;
}

void TextField::setComposition(std::string text) {
  composition_ = std::move(text);
  show();
}

void TextField::show() {
  std::string shown = text_;
  shown.insert(caret_, composition_);
  if (shown.empty()) shown = placeholder_;
  line_ = std::make_unique<graphics::CaretLine>(shown, styleOf(theme::ink));
  whole_ = nullptr;
  shownLook_ = theme::generation();
}

void TextField::scrollToCaret() {
  const double room = bounds().size.width - caretWidth;
  const double caret = line_->distance(caret_ + composition_.size());
  const double width = whole_ ? whole_->size().width : 0;
  const double end = std::max(width, caret);
  const double wanted =
      focused_ ? std::clamp(scroll_, caret - room, std::max(caret - room, caret)) : 0;
  const double scroll = std::clamp(wanted, 0.0, std::max(0.0, end - room));
  if (scroll != scroll_ || !visible_) visible_ = part(whole_, scroll, bounds().size.width);
  scroll_ = scroll;
}

void TextField::draw(view::Canvas& canvas) {
  if (shownLook_ != theme::generation()) show();
  const graphics::Size size = bounds().size;
  const bool isEmpty = text_.empty() && composition_.empty();
  if (!whole_ || whole_->scale() != canvas.scale() || (isEmpty && wholeWidth_ != size.width)) {
    const std::string shown =
        isEmpty ? placeholder_ : std::string(text_).insert(caret_, composition_);
    graphics::TextStyle style = styleOf(isEmpty ? theme::faint : theme::ink);
    if (isEmpty) {
      const double room = std::max(1.0, size.width - 2 * caretWidth);
      const double width = graphics::measureText(shown, style).width;
      if (width >= room) style.fontSize *= std::max(leastPlaceholder, (room - 1) / width);
      style.maximumWidth = room;
    }
    whole_ = graphics::makeTextImage(shown, style, canvas.scale());
    wholeWidth_ = size.width;
    visible_ = nullptr;
  }
  if (isEmpty) {
    scroll_ = 0;
    visible_ = whole_;
  } else {
    scrollToCaret();
  }
  const double left = textLeft();
  if (visible_) {
    const graphics::Size shown = visible_->size();
    const double gap = isEmpty && focused_ ? 2 * caretWidth : 0;
    canvas.draw(visible_,
                {{left > 0 ? left - gap : left + gap, (size.height - shown.height) / 2}, shown});
  }
  if (!focused_) return;
  const double start = isRightToLeft(*this) ? size.width - caretWidth : 0;
  const double x = isEmpty ? start : left + line_->distance(caret_ + composition_.size()) - scroll_;
  const double caretLeft = std::max(0.0, std::min(std::round(x) - 1, size.width - caretWidth));
  const double height = std::min(theme::withText(caretHeight), size.height);
  canvas.fill({{caretLeft, (size.height - height) / 2}, {caretWidth, height}}, theme::accent, 1);
}

}  // namespace orivanta::viewer
