// Views that call an action when they are tapped.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Keys.hpp"
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

/// Knows whether it is pressed, and calls `action` after a tap. `Focus` reaches it if it has an
/// action.
class Pressable : public view::View {
 public:
  Pressable();

  std::function<void()> action;

  /// Does what a tap does, for the keyboard.
  void activate();

  /// Called with a key that is pressed while the view has the focus, before the key does anything
  /// else. Returns false if the key has no function in the view, which is the default.
  virtual bool handleKey(const KeyPress&) { return false; }
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
  filled,  ///< the main action: the color of the paper on the accent color
  tinted,  ///< the accent color on its tint, with a border
  plain    ///< no background
};

/// A text or a symbol, centered. A text that is wider than the button is wrapped.
class Button : public Pressable {
 public:
  Button(ButtonLook look, const std::string& text, double textSize = theme::textSize);

  void setText(std::string text) { label_->setText(std::move(text)); }
  void setLook(ButtonLook look);

  /// Returns the width with the text in one line.
  double fittingWidth();

  /// Returns the height with the wrapped text, at least that of a control.
  double heightFor(double width);
  void draw(view::Canvas& canvas) override;

 private:
  ButtonLook look_;
  std::shared_ptr<Label> label_;
};

/// Places buttons in as many rows as their texts need. Each row has the whole width. Returns the
/// lower edge.
double arrangeButtons(const std::vector<std::shared_ptr<Button>>& buttons, double left, double top,
                      double width, double gap);

}  // namespace orivanta::viewer
