#include "Apps/Viewer/Widgets/Button.hpp"

#include <algorithm>
#include <cctype>
#include <utility>

#include "Platform/View/Canvas.hpp"
#include "Platform/View/TapGestureRecognizer.hpp"

namespace orivanta::viewer {

namespace {

constexpr double side = 8;   // points beside the text
constexpr double edge = 10;  // above the text, and below it
constexpr double anyWidth = 10'000;

theme::Paint colorOf(ButtonLook look) {
  return look == ButtonLook::filled ? theme::paper : theme::accent;
}

// Returns whether a text is one character of the symbols, arrows or punctuation.
bool isSign(const std::string& text) {
  const auto first = static_cast<unsigned char>(text.empty() ? 'a' : text.front());
  if (first < 0x80) return text.size() == 1 && std::isalnum(first) == 0;
  return first >= 0xE2 && text.size() <= 3;
}

LabelStyle buttonStyle(ButtonLook look, double size, const std::string& text) {
  LabelStyle style;
  style.isSign = isSign(text);
  style.size = size;
  style.bold = look != ButtonLook::plain;
  style.alignment = Alignment::center;
  style.color = colorOf(look);
  style.lines = 0;
  return style;
}

}  // namespace

Pressable::Pressable() {
  const auto tap = std::make_shared<view::TapGestureRecognizer>();
  tap->addTarget("tapped", [this](view::GestureRecognizer& sender) {
    tapPlace_ = sender.location(*this);
    activate();
  });
  addGestureRecognizer(tap);
}

void Pressable::activate() {
  const auto self = shared_from_this();  // the action may remove the view
  if (action) action();
}

void Pressable::touchesBegan(std::span<const view::Touch>) { pressed_ = true; }
void Pressable::touchesEnded(std::span<const view::Touch>) { pressed_ = false; }

Button::Button(ButtonLook look, const std::string& text, double textSize)
    : look_(look), label_(std::make_shared<Label>(buttonStyle(look, textSize, text), text)) {
  addSubview(label_);
}

void Button::setLook(ButtonLook look) {
  look_ = look;
  label_->setColor(colorOf(look));
}

double Button::fittingWidth() { return label_->fitting(anyWidth).width + 2 * theme::padding; }

double Button::heightFor(double width) {
  const double text = label_->fitting(std::max(1.0, width - 2 * side)).height;
  return std::max(theme::control(), text + 2 * edge);
}

double arrangeButtons(const std::vector<std::shared_ptr<Button>>& buttons, double left, double top,
                      double width, double gap) {
  for (std::size_t first = 0; first < buttons.size();) {
    // As many as fit, with a little less space around their texts than they would have alone.
    double texts = 0;
    std::size_t end = first;
    for (; end < buttons.size(); ++end) {
      const double next = buttons[end]->fittingWidth() - 2 * (theme::padding - side);
      const double gaps = gap * static_cast<double>(end - first);
      if (end > first && texts + next + gaps > width) break;
      texts += next;
    }
    const double stretched = (width - gap * static_cast<double>(end - first - 1)) / texts;
    double height = 0;
    double x = left;
    for (std::size_t i = first; i < end; ++i) {
      const double own = (buttons[i]->fittingWidth() - 2 * (theme::padding - side)) * stretched;
      buttons[i]->setFrame({{x, top}, {own, 0}});
      height = std::max(height, buttons[i]->heightFor(own));
      x += own + gap;
    }
    for (std::size_t i = first; i < end; ++i) {
      const graphics::Rect place = buttons[i]->frame();
      buttons[i]->setFrame({place.origin, {place.size.width, height}});
    }
    top += height + gap;
    first = end;
  }
  return top - gap;
}

void Button::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  const double margin = look_ == ButtonLook::plain ? 0 : side;
  label_->setFrame({{margin, 0}, {size.width - 2 * margin, size.height}});
  constexpr double radius = 10;
  constexpr graphics::Color shade{0, 0, 0, 0.12F};
  if (look_ == ButtonLook::filled) canvas.fill(bounds(), theme::accent, radius);
  if (look_ == ButtonLook::tinted) {
    canvas.fill(bounds(), theme::border, radius);
    canvas.fill({{1, 1}, {size.width - 2, size.height - 2}}, theme::accentTint, radius - 1);
  }
  if (isPressed()) canvas.fill(bounds(), shade, radius);
}

}  // namespace orivanta::viewer
