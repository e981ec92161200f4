#include "Apps/Viewer/Widgets/TextField.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <utility>

#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::size_t longestText = 200;  // bytes

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::size_t startOfLastCodePoint(std::string_view text) {
  std::size_t start = text.size() - 1;
  while (start > 0 && isContinuation(text[start])) --start;
  return start;
}

bool isMark(std::string_view codePoint) {
  utf8proc_int32_t value = 0;
  utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(codePoint.data()),
                   static_cast<utf8proc_ssize_t>(codePoint.size()), &value);
  const auto category = utf8proc_category(value);
  return category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_ME;
}

void eraseLastCharacter(std::string& text) {
  bool wasMark = true;
  while (wasMark && !text.empty()) {
    const std::size_t start = startOfLastCodePoint(text);
    wasMark = isMark(std::string_view(text).substr(start));
    text.resize(start);
  }
}

}  // namespace

TextField::TextField(std::string placeholder)
    : placeholder_(std::move(placeholder)), label_(std::make_shared<Label>()) {
  addSubview(label_);
  show();
}

void TextField::setText(std::string text) {
  text_ = std::move(text);
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
  for (const char byte : text)
    if (static_cast<unsigned char>(byte) >= ' ' && byte != 0x7F) text_ += byte;
  while (text_.size() > longestText) eraseLastCharacter(text_);
  show();
  if (changed) changed();
}

void TextField::eraseBack(bool word) {
  if (text_.empty()) return;
  if (word) {
    while (!text_.empty() && text_.back() == ' ') text_.pop_back();
    while (!text_.empty() && text_.back() != ' ') eraseLastCharacter(text_);
  } else {
    eraseLastCharacter(text_);
  }
  show();
  if (changed) changed();
}

void TextField::setComposition(std::string text) {
  composition_ = std::move(text);
  show();
}

void TextField::show() {
  const bool isEmpty = text_.empty() && composition_.empty();
  label_->setText(isEmpty ? placeholder_ : text_ + composition_);
  label_->setColor(isEmpty ? theme::faint : theme::ink);
}

void TextField::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  label_->setFrame(bounds());
  if (!focused_) return;
  const bool isEmpty = text_.empty() && composition_.empty();
  double right = isEmpty ? 0 : std::min(label_->fitting(size.width).width, size.width) + 1;
  if (!text_.empty() && text_.back() == ' ') right += theme::textSize * 0.3;
  canvas.fill({{right, size.height / 2 - 10}, {2, 20}}, theme::accent, 1);
}

}  // namespace orivanta::viewer
