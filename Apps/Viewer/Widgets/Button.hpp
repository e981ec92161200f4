// What does something when it is tapped.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/Label.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// An action that calls what is in `receiver` by then, if anything; `receiver` outlives it.
inline std::function<void()> forward(const std::function<void()>& receiver) {
  return [&receiver] {
    if (receiver) receiver();
  };
}

/// Knows whether a finger is on it; calls `action` after a tap.
class Pressable : public view::View {
 public:
  Pressable();

  std::function<void()> action;
  bool isPressed() const { return pressed_; }

  /// Of the latest tap, in this view.
  graphics::Point tapPlace() const { return tapPlace_; }
  void touchesBegan(std::span<const view::Touch> touches) override;
  void touchesEnded(std::span<const view::Touch> touches) override;

 private:
  bool pressed_ = false;
  graphics::Point tapPlace_;
};

enum class ButtonLook {
  filled,  ///< the one that matters: white on the accent
  tinted,  ///< the accent on its tint
  plain    ///< nothing around it
};

/// One line of text, or one sign, in the middle.
class Button : public Pressable {
 public:
  Button(ButtonLook look, std::string text, double textSize = theme::textSize);

  void setText(std::string text) { label_->setText(std::move(text)); }
  double fittingWidth() { return label_->fitting(1000).width + 2 * theme::padding; }
  void draw(view::Canvas& canvas) override;

 private:
  ButtonLook look_;
  std::shared_ptr<Label> label_;
};

/// A name and a knob that is on or off.
class Switch : public Pressable {
 public:
  explicit Switch(std::string text);

  bool isOn() const { return on_; }
  void setOn(bool on) { on_ = on; }
  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<Label> label_;
  bool on_ = false;
};

}  // namespace orivanta::viewer
