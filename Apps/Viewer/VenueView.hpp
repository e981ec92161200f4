// The view of one venue: the map and the panels around it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Viewer/KeptView.hpp"
#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/Panels/FloorHint.hpp"
#include "Apps/Viewer/PictureFetch.hpp"
#include "Apps/Viewer/RouteDisplay.hpp"
#include "Apps/Viewer/RouteSession.hpp"
#include "Apps/Viewer/Theme.hpp"
#include "Apps/Viewer/VenuePanels.hpp"
#include "Apps/Viewer/VenueSource.hpp"
#include "Apps/Viewer/WalkDisplay.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::viewer {

struct VenueViewOptions {
  RouteSession::Clock clock{};              ///< if null, the system's local time
  bool walksAtOnce = false;                 ///< starts the simulated walk of each planned route
  std::shared_ptr<const MapTheme> theme{};  ///< of the map; if null, floors look as their models
  bool reducesMotion = false;               ///< the camera jumps, and nothing moves by itself
};

/// Shows a venue whose records are loaded. Owned by shared pointers. Main thread only.
///
/// The class connects its parts: `RouteSession` plans routes; `MapStyle`, `RouteDisplay` and
/// `WalkDisplay` draw on the map; `VenuePanels` shows texts and passes on what the user does.
class VenueView : public view::View, public MapViewDelegate {
 public:
  static std::shared_ptr<VenueView> make(std::shared_ptr<Venue> venue,
                                         const guidance::InterfaceTexts& texts,
                                         VenueViewOptions options = {});

  // These report the progress and the results of loading the floors.
  std::function<void(double share, const std::string& text)> progressed;
  std::function<void()> loaded;  ///< called when a floor is shown

  /// Called if no floor can be shown (`floor` is null), or if only a requested one cannot.
  std::function<void(const Problem&, const std::shared_ptr<Map>& floor)> failed;

  /// Called with a sentence that the user should read, for example if floors are shown incomplete.
  std::function<void(const std::string&)> remarked;

  /// Called when a route is requested. The receiver may call `setClosures` later.
  std::function<void()> closuresWanted;

  /// Opens the list of venues. If null, there is no button for it. Set it before `arrange`.
  std::function<void()> wayBack;

  /// Starts with `first`, or, if it is null, with the floor of most places. May be called again
  /// after a failure.
  void load(const std::shared_ptr<Map>& first = nullptr);

  /// Loads a failed floor again and shows it when it is ready. The map stays usable.
  void retry(const std::shared_ptr<Map>& floor);

  /// Cancels loading the floors, which is not reported.
  void stopLoading();

  /// `size` is in points, `scale` in pixels per point. The view must be in its window.
  void arrange(graphics::Size size, double scale);

  /// Advances animations. Call it before each frame. `time` is in seconds.
  void advance(double time);

  /// Whether an animation is running.
  bool isMoving() const;

  bool handleKey(const KeyPress& press);
  bool handleText(std::string_view text);

  /// Does what a key does while the search is closed. Returns false if it has no function.
  bool carryOut(std::string_view key);

  /// Selects a place, shows its card and moves the camera to it. Null clears the selection.
  void select(const std::shared_ptr<Location>& place);
  void showFloor(const std::shared_ptr<Map>& floor);

  /// Marks what is closed. If that has changed, plans the current route again; a walk continues
  /// from where it is.
  void setClosures(const guidance::Closures& closures);

  /// Whether a place is in the closures.
  bool isClosed(const Location& place) const;

  /// Starts a simulated walk along the current route, pauses it, or continues it. A walk that has
  /// arrived is started again. Does nothing if there is no route.
  void toggleWalk();
  void toggleHelp();
  void toggleAttribution();

  MapView& mapView() { return *mapView_; }
  MapCamera& camera() const { return mapView_->camera(); }
  const VenuePanels& panels() const { return panels_; }

  /// Returns what the keyboard reaches, in this order.
  std::vector<view::View*> inReadingOrder() const;

  const RouteSession& session() const { return session_; }
  RouteSession& session() { return session_; }
  const std::shared_ptr<Venue>& venue() const { return venue_; }
  const std::shared_ptr<Location>& selected() const { return selected_; }

  /// Returns the walk that is running or has ended at the destination, or null.
  const Walker* walker() const { return walk_.walker(); }

  // MapViewDelegate
  void mapViewDidLoad() override;
  void polygonSelected(const std::shared_ptr<Polygon>&) override {}  // see `mapTapped`
  void nothingSelected() override {}

 private:
  VenueView(std::shared_ptr<Venue> venue, const guidance::InterfaceTexts& texts,
            VenueViewOptions options);
  void connectSearch();
  void connectCard();
  void connectRoute();

  // Layout
  void resizeMap(bool overlayToo);
  void applyLook();
  void showAnew();
  void frameRoute();
  void arrangePanels();

  // Floors
  enum class Asker { user, walk };
  void floorsChanged(const FloorProgress& floor);
  void floorsEnded(const std::vector<FloorProgress>& floors);
  void showFloor(const std::shared_ptr<Map>& floor, Asker asker);
  void await(const std::shared_ptr<Map>& floor, Asker asker = Asker::user);
  void tellFailure(const FloorProgress& floor);
  void floorShown();
  void lookAgain();
  void resumeMap();

  // Places
  void mapTapped(const MapTap& tap);
  void changeFloor(const std::shared_ptr<Map>& floor);
  void placeTapped(const std::shared_ptr<Location>& place);
  void setEnd(RouteEnd end, const std::shared_ptr<Location>& place);
  void lookAt(const Location& place);
  void arrangeHint();
  void arrangeLogo();
  void fetchPicture(const std::shared_ptr<Location>& place);
  void keepCardCurrent();
  void offerRoutes(const std::shared_ptr<Location>& place);
  CardContent cardOf(const Location& place) const;
  void goToNearest(const NearestChoice& choice);

  // Routes
  void routeChanged();
  void removeRoute();
  void showPlan();
  void routeConfirmed();
  void routeReplaced(const std::string& closed);
  void lookAtRoute();
  void showStep(std::size_t index);
  std::string arrivalText() const;
  std::string leftText() const;
  void startWalk();
  void stopWalk();
  void showWalkedFloor();
  void walk(double time);

  // Keys
  bool escape();
  void fitFloor();
  void toggleStack();

  const std::shared_ptr<Venue> venue_;
  const guidance::InterfaceTexts texts_;
  const guidance::Narrator narrator_;
  const RouteSession::Clock clock_;
  const bool walksAtOnce_;
  const std::shared_ptr<const MapTheme> theme_;  // in the usual look
  std::shared_ptr<MapView> mapView_;
  const std::shared_ptr<MapStyle> style_;
  KeptView kept_;
  RouteSession session_;
  RouteDisplay display_;
  WalkDisplay walk_;
  VenuePanels panels_;
  const std::shared_ptr<FloorHint> hint_;

  std::shared_ptr<FloorLoad> floorLoad_;
  std::shared_ptr<Map> awaitedFloor_;  // shown as soon as it is ready; null for none
  Asker asker_ = Asker::user;          // for the awaited floor
  std::shared_ptr<Map> shownFloor_;    // null before the first one
  bool isLoaded_ = false;
  bool hasToldOmissions_ = false;
  std::shared_ptr<Location> selected_;
  PictureFetch pictureFetch_;
  std::vector<NearestChoice> offered_;  // on the card
  guidance::LocalTime cardTime_;        // for which the card says whether the place is open

  double scale_ = 1;
  theme::Look look_;     // of the map
  CameraPose lastPose_;  // of the camera when it was last advanced
};

}  // namespace orivanta::viewer
