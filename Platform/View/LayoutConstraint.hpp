// Linear equations between the edges, centers and sizes of views, and their solution.
#pragma once

#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::view {

enum class LayoutAttribute {
  none,
  left,
  right,
  top,
  bottom,
  leading,   ///< as `left`: the layout does not turn with the direction of writing
  trailing,  ///< as `right`
  width,
  height,
  centerX,
  centerY
};

/// first.firstAttribute = second.secondAttribute * multiplier + constant, in points. Without a
/// second view the right-hand side is the constant alone. Views are not owned: a constraint is held
/// by the parent of both, by the one that is the other's parent or, when it is about one view
/// alone, by that view; it goes when one of them leaves the view that holds it. The edges of a
/// parent are those of its bounds.
struct LayoutConstraint {
  View* first = nullptr;
  LayoutAttribute firstAttribute = LayoutAttribute::none;
  View* second = nullptr;
  LayoutAttribute secondAttribute = LayoutAttribute::none;
  double multiplier = 1.0;
  double constant = 0.0;
};

/// The constraints of a visual format of the form "H:|-0-[subview]-0-|" or "V:|-0-[subview]-0-|",
/// with any decimal numbers: `subview`, a child of `superview`, at those distances from its edges.
/// Either edge may be left out ("H:|-5-[subview]"), and "|[subview]" stands for "|-0-[subview]". An
/// unknown form, or another name than `name`, is a fatal error.
ORIVANTA_API std::vector<LayoutConstraint> constraintsWithVisualFormat(std::string_view format,
                                                                       std::string_view name,
                                                                       View& subview,
                                                                       View& superview);

/// Lays out the children of a view: solves the constraints that the view holds, and then those that
/// its children hold on themselves, for the frames of those children that do not translate their
/// autoresizing mask. Earlier constraints win where some contradict one another, and each that
/// loses is told in a diagnostic line. What the constraints leave open keeps its value, sizes
/// before origins. A negative size becomes 0.
ORIVANTA_API void solveLayout(View& superview);

}  // namespace orivanta::view
