// Where the panels around a map are placed.
#pragma once

#include <cstddef>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta::viewer {

/// How much of a sheet at the lower edge is visible.
enum class SheetStop {
  peek,  ///< the most important lines
  half,  ///< at most half of the window
  full   ///< everything below the search field
};

/// What the places of the panels depend on, in points.
struct PanelMeasures {
  graphics::Size window;
  bool isRightToLeft = false;
  double textScale = 1;     ///< see `theme::Look`
  double controlSide = 44;  ///< see `theme::control`
  double barHeight = 48;    ///< of the closed search field
  double wayBackWidth = 0;  ///< of the button before the search field; 0 if there is none
  bool isSearchOpen = false;
  double sheetHeight = 0;  ///< of the card or the route; 0 if there is neither
  std::size_t floorCount = 0;
  /// The sizes that the column of the map's buttons can have, the best one first. It is hidden if
  /// none fits.
  std::vector<graphics::Size> buttons{};
  bool hasAttribution = false;
};

/// The places of the panels in points of the window. Panels without a place are empty.
struct PanelPlaces {
  graphics::Rect wayBack;
  graphics::Rect search;  ///< while the search is open, the room for the field and the list
  graphics::Rect sheet;   ///< of the card or the route
  graphics::Rect handle;  ///< of a sheet at the lower edge; a part of it is above the sheet
  graphics::Rect floors;
  graphics::Rect buttons;
  graphics::Rect attribution;  ///< the room for it; it is placed at the lower end of the line
  Insets free;                 ///< the space at the edges of the map that panels cover
};

/// The room for the contents of a sheet.
struct SheetRoom {
  double width = 0;
  double most = 0;  ///< height
};

/// Returns whether the card and the route are in a sheet at the lower edge, and not in a column
/// beside the map: in narrow windows and in those that are higher than wide.
bool hasBottomSheet(graphics::Size window);

/// Returns the factor for the size of all texts in a window: more than 1 in very large windows,
/// which are looked at from further away.
double textGrowth(graphics::Size window);

/// Returns the room for a card or a route. `stop` counts only for a sheet at the lower edge. If the
/// contents need more, they get more, up to `SheetStop::full`.
SheetRoom sheetRoom(const PanelMeasures& measures, SheetStop stop);

/// Returns the places of the panels. No two of them overlap, and all are inside the window, unless
/// the window is smaller than 320 by 480 points.
PanelPlaces placePanels(const PanelMeasures& measures);

/// The height of the strip with the handle that is above the contents of a sheet, in points.
inline constexpr double handleStrip = 26;

}  // namespace orivanta::viewer
