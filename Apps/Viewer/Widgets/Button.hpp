// Views that call an action when they are tapped.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/Label.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// Returns an action that calls the current function in `receiver`, if any. `receiver` must outlive
/// it.
inline std::function<void()> forward(const std::function<void()>& receiver) {
  return [&receiver] {
    if (receiver) receiver();
  };
}

/// Knows whether it is pressed, and calls `action` after a tap.
class Pressable : public view::View {
 public:
  Pressable();

  std::function<void()> action;
  bool isPressed() const { return pressed_; }

  /// The position of the latest tap in this view.
  graphics::Point tapPlace() const { return tapPlace_; }
  void touchesBegan(std::span<const view::Touch> touches) override;
  void touchesEnded(std::span<const view::Touch> touches) override;

 private:
  bool pressed_ = false;
  graphics::Point tapPlace_;
};

enum class ButtonLook {
  filled,  ///< the main action: white on the accent color
  tinted,  ///< the accent color on its tint
  plain    ///< no background
};

/// One line of text or one symbol, centered.
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

}  // namespace orivanta::viewer
