// The paper of a sheet at the lower edge, and its handle.
#pragma once

#include <functional>

#include "Apps/Viewer/Widgets/Button.hpp"

namespace orivanta::viewer {

/// Lets a finger drag a sheet by one of its views, but not by lists, which scroll. `dragged` is
/// called with the points that the finger has moved up since it landed, `released` when it has left
/// or the drag was canceled. The view must outlive its recognizers.
void makeDraggable(view::View& view, std::function<void(double up)> dragged,
                   std::function<void()> released);

/// The paper below the contents of a sheet. It continues below the window.
class SheetPaper : public view::View {
 public:
  void draw(view::Canvas& canvas) override;
};

/// Changes the height of a sheet: by dragging, by a tap, and with the arrow keys.
class SheetHandle : public Pressable {
 public:
  SheetHandle();

  /// Called while the handle is dragged, with the points that it has moved up since the finger
  /// landed.
  std::function<void(double up)> dragged;
  std::function<void()> released;        ///< the finger has left, or the drag was canceled
  std::function<void(int steps)> moved;  ///< the sheet should be higher by one step, or lower

  bool handleKey(const KeyPress& press) override;
  void draw(view::Canvas& canvas) override;
};

}  // namespace orivanta::viewer
