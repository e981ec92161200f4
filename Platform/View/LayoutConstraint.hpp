// Linear equations between the edges, centers and sizes of views, and their solution.
// Public header.
#pragma once

#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::view {

/// A coordinate or a size of a view.
enum class LayoutAttribute {
  none,      ///< no attribute
  left,      ///< x of the left edge
  right,     ///< x of the right edge
  top,       ///< y of the upper edge
  bottom,    ///< y of the lower edge
  leading,   ///< as `left`, whatever the direction of writing
  trailing,  ///< as `right`, whatever the direction of writing
  width,     ///< from left to right
  height,    ///< from top to bottom
  centerX,   ///< x of the center
  centerY    ///< y of the center
};

/// The equation first.firstAttribute = second.secondAttribute * multiplier + constant, in points.
/// Without a second view the right-hand side is the constant alone. The edges of a parent are those
/// of its bounds.
///
/// Views are not owned. The parent of both views holds the constraint; if one view is the parent of
/// the other, that view does; a view holds a constraint that is about itself alone. The constraint
/// is removed when one of the views is removed from the view that holds it.
struct LayoutConstraint {
  View* first = nullptr;                                    ///< never null in use
  LayoutAttribute firstAttribute = LayoutAttribute::none;   ///< not `none` in use
  View* second = nullptr;                                   ///< may be null
  LayoutAttribute secondAttribute = LayoutAttribute::none;  ///< `none` without a second view
  double multiplier = 1.0;                                  ///< of the second attribute
  double constant = 0.0;                                    ///< points
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
