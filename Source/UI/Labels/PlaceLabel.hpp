// The labels of a floor, and what a placement needs to know about a frame.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Labels/LabelRoom.hpp"

namespace orivanta {

/// The scales from which on a label is shown, in points per meter; 0 to show it at any scale.
struct LabelScales {
  double symbol = 0;  ///< for the icon or the dot
  double name = 0;    ///< for the name beside the symbol
  double inside = 0;  ///< for the name inside the area
};

/// The label of a place: a symbol (an icon or a dot), a name, or both.
struct PlaceLabel {
  double rank = 0;          ///< see `labelRank`
  LabelScales scales;       ///< see `MapTheme::zoomStep`
  double symbolSize = 0;    ///< width and height of the symbol in points; 0 if there is none
  bool symbolFirst = true;  ///< the symbol is shown even if the name would fit into the area
  /// The sizes of the name in one, two and three lines, in points, with its halo. It has fewer
  /// elements if the name cannot be broken, and none if there is no name.
  std::vector<graphics::Size> names;
  std::shared_ptr<const LabelRoom> room;  ///< null if the place has no area
  bool insideOnly = false;  ///< shown only as a name inside the area, for generated names
};

/// Where the anchor of a label appears in the view.
struct ProjectedPlace {
  graphics::Point point;     ///< in points, y downward
  double pointsPerUnit = 0;  ///< scale across the view at the anchor; 0 if it is behind the camera
};

/// A frame for which labels are placed. Rectangles are in points of the view, y downward.
struct LabelFrame {
  double time = 0;                         ///< seconds; must not decrease
  graphics::Size view;                     ///< points
  double unitsPerMeter = 1;                ///< scene units
  double tilt = 0;                         ///< of the camera, as in `CameraPose`
  double turn = 0;                         ///< of the camera, as in `CameraPose`
  std::span<const ProjectedPlace> places;  ///< of all labels, in their order
  std::span<const graphics::Rect>
      panels;  ///< covered parts of the view that do not move with the map
  std::span<const graphics::Rect> marks;  ///< pins, badges and parts of the route
  /// Returns the share (0 to 1) of a rectangle that covers areas of other places. The second
  /// argument is the index of the label. May be empty. See `AreaRaster`.
  std::function<double(const graphics::Rect&, std::size_t)> shareOnOtherAreas;
};

/// Where the name is relative to the anchor.
enum class LabelSide {
  center,  ///< inside the area, or at a place that has no symbol
  right,   ///< right of the symbol
  left,    ///< left of the symbol
  below,   ///< below the symbol
  above    ///< above the symbol
};

/// A label that is visible in a frame.
struct ShownLabel {
  std::size_t label = 0;               ///< its index
  double symbolOpacity = 0;            ///< 0 to 1
  double nameOpacity = 0;              ///< 0 to 1
  LabelSide side = LabelSide::center;  ///< of the name
  std::size_t lines = 1;               ///< of the name; 1 to the number of `PlaceLabel::names`
  graphics::Rect symbol;               ///< in points of the view
  graphics::Rect name;                 ///< in points of the view
  bool isSymbolLeaving = false;        ///< the symbol is fading out
  bool isNameLeaving = false;          ///< the name is fading out
};

}  // namespace orivanta
