#include "Apps/Viewer/Widgets/Button.hpp"

#include <utility>

#include "Platform/View/Canvas.hpp"
#include "Platform/View/TapGestureRecognizer.hpp"

namespace orivanta::viewer {

namespace {

LabelStyle buttonStyle(ButtonLook look, double size) {
  LabelStyle style;
  style.size = size;
  style.bold = look != ButtonLook::plain;
  style.alignment = Alignment::center;
  style.color = look == ButtonLook::filled ? theme::paper : theme::accent;
  return style;
}

}  // namespace

Pressable::Pressable() {
  const auto tap = std::make_shared<view::TapGestureRecognizer>();
  tap->addTarget("tapped", [this](view::GestureRecognizer& sender) {
    tapPlace_ = sender.location(*this);
    const auto self = shared_from_this();  // the action may remove the view
    if (action) action();
  });
  addGestureRecognizer(tap);
}

void Pressable::touchesBegan(std::span<const view::Touch>) { pressed_ = true; }
void Pressable::touchesEnded(std::span<const view::Touch>) { pressed_ = false; }

Button::Button(ButtonLook look, std::string text, double textSize)
    : look_(look), label_(std::make_shared<Label>(buttonStyle(look, textSize), std::move(text))) {
  addSubview(label_);
}

void Button::draw(view::Canvas& canvas) {
  label_->setFrame(bounds());
  constexpr double radius = 10;
  constexpr graphics::Color shade{0, 0, 0, 0.12F};
  if (look_ == ButtonLook::filled) canvas.fill(bounds(), theme::accent, radius);
  if (look_ == ButtonLook::tinted) canvas.fill(bounds(), theme::accentTint, radius);
  if (isPressed()) canvas.fill(bounds(), shade, radius);
}

}  // namespace orivanta::viewer
