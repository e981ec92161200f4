// The direction of an interface: from left to right or from right to left.
#pragma once

#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// A topmost view. Its direction is that of all views below it; without one, it is left to right.
class DirectedRoot : public view::View {
 public:
  explicit DirectedRoot(bool isRightToLeft) : isRightToLeft_(isRightToLeft) {}
  bool isRightToLeft() const { return isRightToLeft_; }

 private:
  const bool isRightToLeft_;
};

/// Whether the interface that a view belongs to is laid out from right to left.
bool isRightToLeft(const view::View& view);

/// Returns where a rectangle of a view belongs that was computed from left to right: the mirrored
/// place if the interface is laid out from right to left.
graphics::Rect directed(const view::View& view, graphics::Rect rect);

/// Moves the children of a view to where they belong, after they were all placed from left to
/// right. `width` is that of the view, which need not have it yet.
void directChildren(const view::View& view, double width);

}  // namespace orivanta::viewer
