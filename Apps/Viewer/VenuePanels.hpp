// The panels around the map of a venue: in a column beside it, or in a sheet at the lower edge.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/PanelLayout.hpp"
#include "Apps/Viewer/Panels/AttributionLine.hpp"
#include "Apps/Viewer/Panels/FloorSwitch.hpp"
#include "Apps/Viewer/Panels/KeyHelp.hpp"
#include "Apps/Viewer/Panels/MapButtons.hpp"
#include "Apps/Viewer/Panels/PlaceCard.hpp"
#include "Apps/Viewer/Panels/RoutePanel.hpp"
#include "Apps/Viewer/Panels/SearchPanel.hpp"
#include "Apps/Viewer/Widgets/BottomSheet.hpp"
#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::viewer {

/// Creates the panels and places them as `placePanels` says. Main thread only.
class VenuePanels {
 public:
  /// What is shown besides the map.
  struct Contents {
    bool place = false;    ///< the card of a place
    bool route = false;    ///< the stops of a route; hidden while there is a card
    bool wayBack = false;  ///< the button for the list of venues

    friend bool operator==(const Contents&, const Contents&) = default;
  };

  /// The venue must outlive the panels.
  VenuePanels(const Venue& venue, const guidance::InterfaceTexts& texts);

  /// Called when the user has changed the height of the sheet. The receiver calls `arrange`.
  std::function<void()> layoutChanged;

  /// Adds the panels to a view, in front of its children.
  void addTo(view::View& parent) const;

  /// Places the panels in the view to which they were added, which has this size in points. If
  /// other contents are shown than before, half of a sheet is visible.
  void arrange(graphics::Size size, Contents contents);

  /// Sets whether the sheet jumps to its heights instead of gliding. The default is false.
  void setReducedMotion(bool isReduced) { isReduced_ = isReduced; }

  /// Advances a glide of the sheet. Call it before each frame. `time` is in seconds.
  void advance(double time);

  /// Returns whether the sheet is gliding.
  bool isMoving() const { return glide_.has_value(); }

  /// Returns the space at the edges of the map that panels cover.
  Insets insets() const { return insets_; }

  /// Returns the frames of the visible panels.
  std::vector<graphics::Rect> covered() const;

  /// Returns the panels in the order in which their controls are reached with the keyboard. While
  /// the list of keys is open, it is the only one.
  std::vector<view::View*> inReadingOrder() const;

  /// How much of the sheet is visible, if the window has one.
  SheetStop sheetStop() const { return stop_; }
  void setSheetStop(SheetStop stop) { stop_ = stop; }

  const std::shared_ptr<SearchPanel> search;
  const std::shared_ptr<PlaceCard> card;
  const std::shared_ptr<RoutePanel> route;
  const std::shared_ptr<FloorSwitch> floors;
  const std::shared_ptr<AttributionLine> attribution;
  const std::shared_ptr<KeyHelp> help;
  const std::shared_ptr<MapButtons> mapButtons;
  const std::shared_ptr<Button> back;
  const std::shared_ptr<SheetHandle> handle;

 private:
  std::vector<std::shared_ptr<view::View>> all() const;  // from the back to the front
  void connectHandle();
  bool hasSheet() const { return hasBottomSheet(size_); }
  PanelMeasures measures();
  double wayBackWidth();
  double arrangeContents(double width, double most);
  double sheetHeight(const PanelMeasures& measures);
  void drag(double up);
  void endDrag();
  void changeStop(int steps);
  void openFurther();
  void glideFrom(double height);
  void placeSearch(const graphics::Rect& room);
  void placeSheet(const PanelPlaces& places);
  void placeAttribution(const graphics::Rect& room);
  void placeHelp();

  const std::shared_ptr<Panel> backPanel_;
  const std::shared_ptr<SheetPaper> paper_;
  const std::string backText_;
  const bool isRightToLeft_;
  graphics::Size size_;
  Contents contents_;
  Insets insets_;
  SheetStop stop_ = SheetStop::half;
  double contentsHeight_ = 0;            // of the card or the route, as it was last arranged
  std::optional<double> dragStart_;      // that height when a drag of the handle began
  std::optional<double> draggedHeight_;  // during the drag and during a glide
  struct Glide {
    double from;
    double to;
    std::optional<double> start;  // seconds; empty until first advanced
  };
  std::optional<Glide> glide_;
  bool isReduced_ = false;
};

}  // namespace orivanta::viewer
