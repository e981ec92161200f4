// The panels around the map of a venue: beside it on a wide screen, above and below it on a phone.
#pragma once

#include <memory>
#include <vector>

#include "Apps/Viewer/Panels/AttributionLine.hpp"
#include "Apps/Viewer/Panels/FloorSwitch.hpp"
#include "Apps/Viewer/Panels/KeyHelp.hpp"
#include "Apps/Viewer/Panels/MapButtons.hpp"
#include "Apps/Viewer/Panels/PlaceCard.hpp"
#include "Apps/Viewer/Panels/RoutePanel.hpp"
#include "Apps/Viewer/Panels/SearchPanel.hpp"
#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::viewer {

/// Creates the panels and arranges them. In an interface from right to left, they are mirrored.
class VenuePanels {
 public:
  /// What is shown besides the map.
  struct Contents {
    bool place = false;    ///< the card of a place
    bool route = false;    ///< the stops of a route; hidden while there is a card
    bool wayBack = false;  ///< the button for the list of venues
  };

  /// The venue must outlive the panels.
  VenuePanels(const Venue& venue, const guidance::InterfaceTexts& texts);

  /// Adds the panels to a view, in front of its children.
  void addTo(view::View& parent) const;

  /// Places the panels in the view to which they were added, which has this size in points.
  void arrange(graphics::Size size, Contents contents);

  /// The space at the edges of the map that panels cover.
  Insets insets() const { return insets_; }

  /// The frames of the visible panels.
  std::vector<graphics::Rect> covered() const;

  const std::shared_ptr<SearchPanel> search;
  const std::shared_ptr<PlaceCard> card;
  const std::shared_ptr<RoutePanel> route;
  const std::shared_ptr<FloorSwitch> floors;
  const std::shared_ptr<AttributionLine> attribution;
  const std::shared_ptr<KeyHelp> help;
  const std::shared_ptr<MapButtons> mapButtons;
  const std::shared_ptr<Button> back;

 private:
  std::vector<std::shared_ptr<view::View>> all() const;  // from the back to the front
  bool isWide() const;
  double margin() const;
  void arrangeSearch();
  double arrangeWayBack();
  void arrangeSheets();
  void arrangeFloors();
  double bottomAboveSheets(double gapAbove) const;
  void arrangeAttribution();
  void arrangeHelp();
  Insets freeEdges() const;

  const std::shared_ptr<Panel> backPanel_;
  const bool isRightToLeft_;
  graphics::Size size_;
  Contents contents_;
  Insets insets_;
};

}  // namespace orivanta::viewer
