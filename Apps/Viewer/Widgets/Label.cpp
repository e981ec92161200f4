#include "Apps/Viewer/Widgets/Label.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double leastShare = 0.7;  // of the size of a text whose longest word does not fit

// Returns the longest word of a script whose words are not broken; empty if there is none.
std::string_view longestWord(std::string_view text) {
  constexpr unsigned char firstUnspaced = 0xE1;  // of the bytes of characters from U+1000 on
  std::string_view longest;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \n-", start), text.size());
    const std::string_view word = text.substr(start, end - start);
    const bool isUnspaced = std::any_of(word.begin(), word.end(), [](char byte) {
      return static_cast<unsigned char>(byte) >= firstUnspaced;
    });
    if (!isUnspaced && word.size() > longest.size()) longest = word;
    start = end + 1;
  }
  return longest;
}

}  // namespace

Label::Label(LabelStyle style, std::string text) : style_(style), text_(std::move(text)) {
  setUserInteractionEnabled(false);
}

void Label::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  forgetPicture();
}

void Label::setSize(double points) {
  if (points == style_.size) return;
  style_.size = points;
  forgetPicture();
}

void Label::setLines(int most) {
  if (most == style_.lines) return;
  style_.lines = most;
  forgetPicture();
}

void Label::setColor(theme::Paint color) { style_.color = color; }

void Label::forgetPicture() {
  pictureWidth_ = -1;
  fittingRoom_ = -1;
}

graphics::TextStyle Label::textStyle(double width) const {
  graphics::TextStyle style;
  style.fontSize = style_.isSign ? style_.size * theme::control() / theme::controlSize
                                 : theme::withText(style_.size);
  style.bold = style_.bold;
  style.color = style_.color;
  style.maximumWidth = width;
  style.maximumLines = style_.lines;
  style.wholeLines = true;
  style.alignment = style_.alignment == Alignment::center ? graphics::TextAlignment::center
                                                          : graphics::TextAlignment::leading;
  if (style_.lines != 1) fitWord(style);
  return style;
}

// Makes the text smaller rather than break a word, unless the word must be broken even so.
void Label::fitWord(graphics::TextStyle& style) const {
  const double room = std::exchange(style.maximumWidth, 0) - 1;  // slightly more than it needs
  const double width = graphics::measureText(longestWord(text_), style).width;
  style.maximumWidth = room + 1;
  if (width > room && width * leastShare <= room) style.fontSize *= room / width;
}

bool Label::isCut() const {
  if (text_.empty() || style_.isSign) return false;
  const graphics::Size room = bounds().size;
  graphics::TextStyle style = textStyle(room.width);
  const graphics::Size shown = graphics::measureText(text_, style);
  style.maximumLines = 0;
  const graphics::Size whole = graphics::measureText(text_, style);
  return whole.height > std::max(shown.height, 1.0) + 1 || whole.height > room.height + 1 ||
         whole.width > room.width + 1;
}

const std::shared_ptr<const graphics::Image>& Label::picture(double width, double scale) {
  const graphics::Color color = style_.color;
  if (pictureLook_ != theme::generation()) forgetPicture();
  if (pictureWidth_ == width && pictureScale_ == scale && pictureColor_ == color) return picture_;
  picture_ = width > 0 ? graphics::makeTextImage(text_, textStyle(width), scale) : nullptr;
  pictureWidth_ = width;
  pictureScale_ = scale;
  pictureColor_ = color;
  pictureLook_ = theme::generation();
  return picture_;
}

graphics::Size Label::fitting(double width) {
  const auto& image = picture(width, pictureScale_);
  fittingRoom_ = width;
  fittingWidth_ = image ? std::ceil(image->size().width) : 0;
  if (!image) return {0, 0};
  return {fittingWidth_, std::ceil(image->size().height)};
}

void Label::draw(view::Canvas& canvas) {
  View::draw(canvas);
  const graphics::Size size = bounds().size;
  // A text needs slightly more than the width of its image to be laid out in the same way.
  const bool hasFittingWidth = fittingWidth_ <= size.width && size.width < fittingRoom_;
  const auto& image = picture(hasFittingWidth ? fittingRoom_ : size.width, canvas.scale());
  if (!image) return;
  const graphics::Size shown = image->size();
  double start = 0;
  if (style_.alignment == Alignment::center) start = (size.width - shown.width) / 2;
  if (style_.alignment == Alignment::trailing) start = size.width - shown.width;
  canvas.draw(image, directed(*this, {{start, (size.height - shown.height) / 2}, shown}));
}

}  // namespace orivanta::viewer
