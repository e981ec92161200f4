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
  leading,   ///< same as `left`, in every writing direction
  trailing,  ///< same as `right`, in every writing direction
  width,     ///< from left to right
  height,    ///< from top to bottom
  centerX,   ///< x of the center
  centerY    ///< y of the center
};

/// The equation first.firstAttribute = second.secondAttribute * multiplier + constant, in points.
/// If there is no second view, the right-hand side is only the constant. The edges of a parent are
/// those of its bounds.
///
/// Views are not owned. The constraint is held by the parent of both views, by one of the views if
/// it is the parent of the other, or by the view itself if the constraint refers to no other view.
/// The constraint is removed when one of the views is removed from the view that holds it.
struct LayoutConstraint {
  View* first = nullptr;                                    ///< never null in use
  LayoutAttribute firstAttribute = LayoutAttribute::none;   ///< not `none` in use
  View* second = nullptr;                                   ///< may be null
  LayoutAttribute secondAttribute = LayoutAttribute::none;  ///< `none` without a second view
  double multiplier = 1.0;                                  ///< of the second attribute
  double constant = 0.0;                                    ///< points
};

/// Returns the constraints for a visual format of the form "H:|-0-[subview]-0-|" or
/// "V:|-0-[subview]-0-|". They place `subview`, a child of `superview`, at the given distances from
/// the edges of `superview`. The distances may be any decimal numbers. Either edge may be left out
/// ("H:|-5-[subview]"), and "|[subview]" means "|-0-[subview]". An unknown form, or a view name
/// other than `name`, is a fatal error.
ORIVANTA_API std::vector<LayoutConstraint> constraintsWithVisualFormat(std::string_view format,
                                                                       std::string_view name,
                                                                       View& subview,
                                                                       View& superview);

/// Lays out the children of a view that do not translate their autoresizing mask. Solves the
/// constraints that the view holds, and then those that its children hold on themselves. If
/// constraints contradict one another, the earlier one is used, and each ignored one is reported in
/// a diagnostic line. Values that the constraints do not determine are kept, sizes before origins.
/// A negative size becomes 0.
ORIVANTA_API void solveLayout(View& superview);

}  // namespace orivanta::view
