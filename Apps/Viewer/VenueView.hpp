// The view of one venue: the map and the panels around it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Viewer/BackgroundGuide.hpp"
#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/Panels/AttributionLine.hpp"
#include "Apps/Viewer/Panels/FloorSwitch.hpp"
#include "Apps/Viewer/Panels/KeyHelp.hpp"
#include "Apps/Viewer/Panels/PlaceCard.hpp"
#include "Apps/Viewer/Panels/RoutePanel.hpp"
#include "Apps/Viewer/Panels/SearchPanel.hpp"
#include "Apps/Viewer/PictureFetch.hpp"
#include "Apps/Viewer/VenueSource.hpp"
#include "Apps/Viewer/Walker.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/LocalTime.hpp"
#include "Source/UI/Display/LabelLayer.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::viewer {

/// How routes are described.
struct GuidanceOptions {
  std::string language{};                        ///< if empty, the user's languages
  std::function<guidance::LocalTime()> clock{};  ///< if null, the system's local time
};

/// Owned by shared pointers. The records of the venue must be loaded. Main thread only.
class VenueView : public view::View, public MapViewDelegate {
 public:
  static std::shared_ptr<VenueView> make(std::shared_ptr<Venue> venue,
                                         GuidanceOptions options = {});

  // These report the progress and the results of loading the floors.
  std::function<void(double share, const std::string& text)> progressed;
  std::function<void()> loaded;  ///< called when a floor is shown

  /// Called if no floor can be shown (`floor` is null), or if only a requested one cannot.
  std::function<void(const Problem&, const std::shared_ptr<Map>& floor)> failed;

  /// Called with a sentence if the floors are shown incomplete.
  std::function<void(const std::string&)> remarked;

  /// Called when a route is requested. The receiver may call `setClosures` later.
  std::function<void()> closuresWanted;

  /// Opens the list of venues. If null, there is no button for it. Set it before `arrange`.
  std::function<void()> wayBack;

  /// Starts with `first` if it is not null. May be called again after a failure.
  void load(const std::shared_ptr<Map>& first = nullptr);

  /// Loads a failed floor again and shows it when it is ready. The map stays usable.
  void retry(const std::shared_ptr<Map>& floor);

  /// Cancels loading the floors, which is not reported.
  void stopLoading();

  /// `size` is in points, `scale` in pixels per point.
  void arrange(graphics::Size size, double scale);

  /// Advances animations. Call it before each frame. `time` is in seconds.
  void advance(double time);

  /// Whether an animation is running.
  bool isMoving() const;

  bool handleKey(const KeyPress& press);
  bool handleText(std::string_view text);

  /// Selects a place, shows its card and moves the camera to it. Null clears the selection.
  void select(const std::shared_ptr<Location>& place);
  void showFloor(const std::shared_ptr<Map>& floor);

  /// Marks what is closed, and plans the current route again if that has changed.
  void setClosures(const guidance::Closures& closures);

  /// Whether a place is in the closures.
  bool isClosed(const Location& place) const;

  /// Starts or ends a simulated walk along the current route. Does nothing if there is none.
  void toggleWalk();

  MapView& mapView() { return *mapView_; }
  MapCamera& camera() const { return mapView_->camera(); }
  SearchPanel& searchPanel() { return *search_; }
  PlaceCard& placeCard() { return *card_; }
  RoutePanel& routePanel() { return *routePanel_; }
  FloorSwitch& floorSwitch() { return *floors_; }
  AttributionLine& attribution() { return *attribution_; }
  Button& backButton() { return *backButton_; }
  const std::shared_ptr<Location>& selected() const { return selected_; }

  /// Returns the route that is shown, or null.
  const GuidedRoute* route() const;

  /// Whether a route is being planned.
  bool isPlanning() const { return guide_.isBusy(); }

  /// Returns the walk that is running or has ended at the destination, or null.
  const Walker* walker() const { return walker_.get(); }
  const std::shared_ptr<Venue>& venue() const { return venue_; }
  void toggleHelp();
  void toggleAttribution();

  // MapViewDelegate
  void mapViewDidLoad() override;
  void polygonSelected(const std::shared_ptr<Polygon>& polygon) override;
  void nothingSelected() override;

 private:
  VenueView(std::shared_ptr<Venue> venue, GuidanceOptions options);
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
  void offerRoutes(const std::shared_ptr<Location>& place);
  void markClosed();
  bool hasStops() const { return from_ || to_ || nearest_; }
  bool isComplete() const { return from_ && (to_ || nearest_); }
  void beginRoute(std::shared_ptr<Location> from, std::shared_ptr<Location> to);
  void beginRouteToNearest(std::shared_ptr<Location> from,
                           const std::shared_ptr<Category>& category);
  void addStop(const std::shared_ptr<Location>& place);
  void planRoute();
  StopNames stopNames(const std::shared_ptr<Location>& to) const;
  void startPlanning();
  void showPlan(GuidedPlan plan);
  void showRoute(std::size_t index);
  void dropRoute();
  std::string arrivalText(const GuidedRoute& route) const;
  void frameRoute();
  void showStep(std::size_t index);
  void setPosition(const std::shared_ptr<Map>& floor, graphics::Vector3 position);
  void clearPosition();
  void markPosition();
  void followWalker();
  void walk(double time);
  void stopWalk();
  void clearRoute();
  void lookFor(bool start);
  bool escape();
  bool handleKeyInSearch(const KeyPress& press);
  bool moveCamera(const KeyPress& press);
  bool fillsEnd(const std::shared_ptr<Location>& place);

  std::shared_ptr<Venue> venue_;
  std::shared_ptr<MapView> mapView_;
  std::unique_ptr<LabelLayer> labels_;
  const std::function<guidance::LocalTime()> clock_;
  BackgroundGuide guide_;

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
  std::shared_ptr<Map> awaitedFloor_;  // shown as soon as it is ready; null for none
  std::shared_ptr<Map> shownFloor_;    // null before the first one
  bool isLoaded_ = false;
  std::shared_ptr<Location> selected_;
  PictureFetch pictureFetch_;
  std::shared_ptr<MapViewMarker2D> mark_;
  std::shared_ptr<Location> from_;
  std::shared_ptr<Location> to_;
  std::optional<bool> searchesForStart_;            // set if the search is for an end of the route
  std::vector<std::shared_ptr<Location>> between_;  // stops between the two
  std::shared_ptr<Category> nearest_;  // the destination is its nearest place; null for `to_`
  std::size_t profile_ = 0;            // of `profileChoices`
  guidance::Closures closures_;
  std::vector<std::shared_ptr<MapViewMarker2D>> closedMarks_;  // of the current floor
  std::vector<std::shared_ptr<Location>> markedClosed_;        // the places with these marks
  std::vector<std::shared_ptr<Category>> offered_;             // on the card
  GuidedPlan plan_;
  std::size_t chosenRoute_ = 0;  // of the plan
  std::unique_ptr<RouteOverlay> routeOverlay_;
  std::shared_ptr<MapViewMarker2D> positionMark_;  // of a step or of the walker; null until needed
  std::shared_ptr<Map> positionFloor_;             // null if there is no position
  bool isPositionShown_ = false;
  std::unique_ptr<Walker> walker_;
  std::optional<CameraPose> walkPose_;  // set while the camera follows the walker
  std::shared_ptr<Node> wantedNode_;    // of the route; the part around it is framed

  double scale_ = 1;
  bool hasNamesToDraw_ = false;
  CameraPose lastPose_;  // of the camera when it was last advanced
};

}  // namespace orivanta::viewer
