// The focus of the keyboard.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Apps/Viewer/Keys.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// Knows which control the keyboard operates. Controls are visible `Pressable` views with an action
/// and lists with rows; the arrow keys move among the rows of a list.
class Focus {
 public:
  /// The views whose controls can be reached, in reading order. Views that are null or hidden are
  /// left out. Within a view, the reading order follows from the places of the controls.
  using Areas = std::vector<view::View*>;

  /// Moves the focus with Tab, or passes another key to the focused control. Enter and Space
  /// activate it. Returns false if the key was not used.
  bool handleKey(const KeyPress& press, const Areas& areas);

  /// Takes the focus away. Returns whether a visible control had it.
  bool clear();

  /// Returns the focused view, or null if there is none or if it is no longer visible.
  std::shared_ptr<view::View> focused() const;

  /// Returns the place of the focused control, or of the focused row of a list, in the topmost
  /// view.
  std::optional<graphics::Rect> focusedRect() const;

 private:
  void move(bool back, const Areas& areas);

  std::weak_ptr<view::View> focused_;
};

/// Returns the controls of the areas in reading order.
std::vector<std::shared_ptr<view::View>> controlsOf(const Focus::Areas& areas);

/// Draws a ring around the focused control, in two colors, so that it is visible on every
/// background. Covers the topmost view and receives no touches.
class FocusRing : public view::View {
 public:
  /// `focus` must outlive the view.
  explicit FocusRing(const Focus& focus);

  void draw(view::Canvas& canvas) override;

  static constexpr double width = 5;  ///< points, of both colors together

 private:
  const Focus& focus_;
};

}  // namespace orivanta::viewer
