// One venue in the hands of a person: the map, and the panels around it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/Panels/AttributionLine.hpp"
#include "Apps/Viewer/Panels/FloorSwitch.hpp"
#include "Apps/Viewer/Panels/KeyHelp.hpp"
#include "Apps/Viewer/Panels/PlaceCard.hpp"
#include "Apps/Viewer/Panels/RoutePanel.hpp"
#include "Apps/Viewer/Panels/SearchPanel.hpp"
#include "Apps/Viewer/PictureFetch.hpp"
#include "Apps/Viewer/RoutePlanner.hpp"
#include "Apps/Viewer/VenueSource.hpp"
#include "Source/UI/Display/LabelLayer.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::viewer {

/// Held by handle; of a venue whose records are loaded. Main thread.
class VenueView : public view::View, public MapViewDelegate {
 public:
  static std::shared_ptr<VenueView> make(std::shared_ptr<Venue> venue);

  // Told what the load of the floors comes to.
  std::function<void(double share, const std::string& text)> progressed;
  std::function<void()> loaded;  ///< there is a floor to see

  /// There is none to see, or one that was asked for while others can be seen: `floor`, else null.
  std::function<void(const Problem&, const std::shared_ptr<Map>& floor)> failed;

  /// Told in a sentence what the floors are shown without, if anything.
  std::function<void(const std::string&)> remarked;

  /// To the list of venues; without it no button for it shows. Set before `arrange`.
  std::function<void()> wayBack;

  /// Begins with `first`, if any. May be called again after a failure.
  void load(const std::shared_ptr<Map>& first = nullptr);

  /// Loads a floor again that failed, while the map goes on, and shows it once it is there.
  void retry(const std::shared_ptr<Map>& floor);

  /// Ends the load of the floors; nothing is told of it any more.
  void stopLoading();

  /// `size` in points, `scale` pixels per point.
  void arrange(graphics::Size size, double scale);

  /// Moves what moves by itself. Before each frame; `time` in seconds.
  void advance(double time);

  /// Whether something moves by itself.
  bool isMoving() const;

  bool handleKey(const KeyPress& press);
  bool handleText(std::string_view text);

  /// Shows a place, with its card; null for none. Brings the camera to it.
  void select(const std::shared_ptr<Location>& place);
  void showFloor(const std::shared_ptr<Map>& floor);

  MapView& mapView() { return *mapView_; }
  MapCamera& camera() const { return mapView_->camera(); }
  SearchPanel& searchPanel() { return *search_; }
  PlaceCard& placeCard() { return *card_; }
  RoutePanel& routePanel() { return *routePanel_; }
  FloorSwitch& floorSwitch() { return *floors_; }
  AttributionLine& attribution() { return *attribution_; }
  Button& backButton() { return *backButton_; }
  const std::shared_ptr<Location>& selected() const { return selected_; }
  const std::optional<PlannedRoute>& route() const { return route_; }
  const std::shared_ptr<Venue>& venue() const { return venue_; }
  void toggleHelp();
  void toggleAttribution();

  // MapViewDelegate
  void mapViewDidLoad() override;
  void polygonSelected(const std::shared_ptr<Polygon>& polygon) override;
  void nothingSelected() override;

 private:
  explicit VenueView(std::shared_ptr<Venue> venue);
  void connect();
  void resizeMap(bool overlayToo);
  void showAnew();
  void addMapButtons();
  void addWayBack();
  void arrangePanels();
  double arrangeWayBack(double margin);
  void arrangeSheets(bool isWide);
  void arrangeMapButtons(bool isWide);
  void arrangeAttribution(bool isWide);
  void coverLabels();
  void updateInsets(bool isWide);

  void floorsChanged(const FloorProgress& floor);
  void floorsEnded(const std::vector<FloorProgress>& floors);
  void await(const std::shared_ptr<Map>& floor);
  void tellFailure(const FloorProgress& floor);
  void remarkOmissions(const std::vector<FloorProgress>& floors);
  void floorShown();
  void lookAgain();
  void resumeMap();
  void highlight(const std::shared_ptr<Location>& place);

  void mark(const std::shared_ptr<Location>& place);
  void fetchPicture(const std::shared_ptr<Location>& place);
  void beginRoute(std::shared_ptr<Location> from, std::shared_ptr<Location> to);
  void planRoute();
  void frameRoute();
  void showStep(const RouteStep& step);
  void clearRoute();
  void lookFor(bool start);
  bool escape();
  bool handleKeyInSearch(const KeyPress& press);
  bool moveCamera(const KeyPress& press);
  bool fillsEnd(const std::shared_ptr<Location>& place);

  std::shared_ptr<Venue> venue_;
  std::shared_ptr<MapView> mapView_;
  std::unique_ptr<LabelLayer> labels_;
  RoutePlanner planner_;

  std::shared_ptr<SearchPanel> search_;
  std::shared_ptr<PlaceCard> card_;
  std::shared_ptr<RoutePanel> routePanel_;
  std::shared_ptr<FloorSwitch> floors_;
  std::shared_ptr<AttributionLine> attribution_;
  std::shared_ptr<KeyHelp> help_;
  std::shared_ptr<Panel> mapButtons_;
  std::vector<std::shared_ptr<Button>> mapButtonList_;
  std::shared_ptr<Panel> backPanel_;
  std::shared_ptr<Button> backButton_;

  std::shared_ptr<FloorLoad> floorLoad_;
  std::shared_ptr<Map> awaitedFloor_;  // to be shown as soon as it is there; null for none
  std::shared_ptr<Map> shownFloor_;    // null before the first one
  bool isLoaded_ = false;
  std::shared_ptr<Location> selected_;
  PictureFetch pictureFetch_;
  std::shared_ptr<MapViewMarker2D> mark_;
  std::shared_ptr<Location> from_;
  std::shared_ptr<Location> to_;
  std::optional<bool> searchesForStart_;  // what is looked for is an end of the route
  bool accessible_ = false;
  std::optional<PlannedRoute> route_;
  std::unique_ptr<RouteOverlay> routeOverlay_;
  std::shared_ptr<Node> wantedNode_;  // of the route, whose surroundings are to be seen

  double scale_ = 1;
  bool hasNamesToDraw_ = false;
  CameraPose lastPose_;  // of the camera when it was last advanced
};

}  // namespace orivanta::viewer
