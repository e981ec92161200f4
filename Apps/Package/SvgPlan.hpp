// Writes plans of floors as SVG.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Package/Box.hpp"
#include "Apps/Package/Color.hpp"
#include "Apps/Package/Geometry.hpp"

namespace orivanta::package {

/// Such as "#1546B8".
std::string hex(Color color);

/// The text as content or as a quoted attribute of HTML and SVG, without control characters.
std::string markup(std::string_view text);

/// One `<svg>` element. x points right and y up, in the unit of the plan. Attributes are written as
/// they are, for example `fill="#FFFFFF"`. Coordinates that are not finite are not drawn.
class SvgPlan {
 public:
  /// Extends the part of the plane that is shown.
  void reach(Point point);

  /// The corners of the part that is shown, without its margin; both are the origin if nothing was
  /// reached.
  Point least() const { return isEmpty() ? Point() : box_.least; }
  Point most() const { return isEmpty() ? Point() : box_.most; }
  bool isEmpty() const { return box_.isEmpty(); }

  /// About a pixel on a large screen: a thousandth of the longer side with a margin.
  double pixel(double margin) const;

  /// Fills what is inside an odd number of rings.
  void shape(const std::vector<Outline>& rings, std::string_view attributes);
  void line(const std::vector<Point>& points, std::string_view attributes);
  void disc(Point middle, double radius, std::string_view attributes);
  /// `content` is escaped.
  void text(Point at, double size, std::string_view content, std::string_view attributes);

  /// A disc with a number that leads to the element "finding-N" of the page. `color` is that of the
  /// disc.
  void mark(std::size_t number, Point middle, std::string_view color, double pixel);

  /// Adds an element or a part of one as it is.
  void add(std::string_view element) { elements_ += element; }

  /// The whole element. There is a margin on all sides, and `below` more at the lower edge.
  std::string finish(double margin, double below, std::string_view attributes) const;

 private:
  Box box_;
  std::string elements_;
};

}  // namespace orivanta::package
