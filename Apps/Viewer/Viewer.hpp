// The viewer without its window: what it shows and how it reacts.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/Panels/ConnectionNote.hpp"
#include "Apps/Viewer/Panels/LoadingVeil.hpp"
#include "Apps/Viewer/Panels/MessagePanel.hpp"
#include "Apps/Viewer/Panels/Note.hpp"
#include "Apps/Viewer/Panels/VenueList.hpp"
#include "Apps/Viewer/Pointer.hpp"
#include "Apps/Viewer/Reconnection.hpp"
#include "Apps/Viewer/VenueSource.hpp"
#include "Apps/Viewer/VenueView.hpp"
#include "Apps/Viewer/Widgets/Focus.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/View/TouchDispatcher.hpp"

namespace orivanta::viewer {

struct ViewerOptions {
  /// See `VenueSource`. With a store, venues are shown from it when the server does not answer.
  ApiSettings settings;
  std::optional<std::string> slug;  ///< of the venue; if empty, all venues are listed

  /// Language tags in the form of `Accept-Language`, for the interface, the instructions and the
  /// names of places. If empty, the user's languages.
  std::string languages{};
  RouteSession::Clock clock{};  ///< if null, the system's local time
  bool walksAtOnce = false;     ///< see `VenueViewOptions`
  theme::Look look{};           ///< of the interface at the start
  bool isOffline = false;       ///< shows only stored venues, without network access
  std::shared_ptr<const MapTheme> theme = MapTheme::light();  ///< see `VenueViewOptions`
  bool reducesMotion = false;                                 ///< see `VenueViewOptions`
};

/// A host shows `root` and passes input with times in seconds that increase. It drains the main
/// queue, which delivers the results of loads. Main thread only.
class Viewer {
 public:
  explicit Viewer(ViewerOptions options);
  ~Viewer();
  Viewer(const Viewer&) = delete;
  Viewer& operator=(const Viewer&) = delete;

  std::function<void()> pictureWanted;                 ///< the key for it was pressed
  std::function<void(std::string_view what)> reached;  ///< a step of loading has ended

  const std::shared_ptr<view::View>& root() const { return root_; }

  /// `size` is in points, `scale` in pixels per point.
  void resize(graphics::Size size, double scale);

  /// Changes the look of the interface. In very large windows, texts are larger than `textScale`
  /// says.
  void setLook(const theme::Look& look);
  const theme::Look& look() const { return look_; }

  /// The focus of the keyboard.
  const Focus& focus() const { return focus_; }

  void touch(std::span<const view::Touch> touches);
  void cancelTouches(double time);
  Pointer& pointer() { return pointer_; }
  void wheel(graphics::Point at, double steps);
  void keyPressed(const KeyPress& press);
  void textTyped(std::string_view text);
  void textComposed(std::string_view text);

  /// Call before each frame. Also asks at intervals what is closed in the shown venue.
  void advance(double time);

  /// Returns the time at which a frame is necessary although nothing changes. Infinite if there is
  /// none.
  double nextFrameTime() const;

  /// Whether the image changes without input.
  bool isMoving() const;

  /// Whether a floor is visible and nothing covers it.
  bool showsMap() const;

  /// Whether the user is typing.
  bool wantsText() const;

  /// The place of the typed text in the root, or nothing if the user is not typing.
  std::optional<graphics::Rect> textPlace() const;

  /// Leaves the venue, loaded or not, for the list. Does nothing if there is only one venue and it
  /// was requested by its slug.
  void goBack();
  bool canGoBack() const;

  std::string title() const;                                                  ///< of the window
  const std::shared_ptr<VenueView>& venueView() const { return venueView_; }  ///< may be null
  const MessagePanel* message() const;  ///< null if there is none

  /// Shows a sentence for a while, after the one that is still shown, if any.
  void remark(const std::string& sentence);

  /// Returns all sentences that are still shown, or an empty text.
  std::string note() const;
  VenueList& venueList() { return *venueList_; }

  /// Says that a stored venue is shown; null if there is a connection.
  const ConnectionNote* connectionNote() const;

  /// Tries to reach the server now, if there is no connection.
  void reconnect();

  const guidance::InterfaceTexts& texts() const { return texts_; }  ///< of the interface

 private:
  friend class Pointer;

  void arrange();
  void listVenues();
  void choose(const VenueSource::Venues& venues);
  Problem unknownVenue(const VenueSource::Venues& venues) const;
  void open(const std::shared_ptr<Venue>& venue);
  void showFloors();
  std::shared_ptr<VenueView> makeView(const std::shared_ptr<Venue>& venue);
  void closeVenue();
  void cachePictures();

  // Without a connection
  using Fallback = std::function<void(const Problem&)>;
  void listStored(const Problem& problem, bool stillWaits = false);
  void openStored(const std::string& slug, const Problem& problem,
                  const std::function<void()>& retry, bool stillWaits = false);
  Problem nothingStored() const;
  bool isDisconnected() const { return isOffline_ || reconnection_; }
  void waitFor(std::function<void()> stored);
  void endWait();
  void loseConnection(const std::string& sentence);
  void connected(const VenueSource::Venues& venues, const std::shared_ptr<Venue>& venue);
  void connectionRefused(const Problem& problem);
  void awaitServer();
  void endAwaiting();
  void endReconnection();
  void takeFresh(const std::shared_ptr<Venue>& venue);
  void replaceView(const std::shared_ptr<Venue>& venue);
  void advanceIncoming();
  void showIncoming();
  void dropIncoming();
  void fetchClosures();
  void showLoading(const std::string& title);
  void showList();
  void raisePanels();
  void arrangeNote();
  bool isLoading() const { return !veil_->isHidden() && veil_->isBusy(); }
  void hideNote();
  void takePicture();
  void showProblem(const Problem& problem, std::function<void()> retry,
                   std::function<void()> dismiss = nullptr, const std::string& otherWay = "");
  void floorFailed(const Problem& problem, const std::shared_ptr<Map>& floor);
  VenueSource::Handlers handlers(std::function<void()> retry, Fallback fallback = nullptr);
  std::function<void()> wayBack();

  // The look and the focus
  void applyLook();
  bool changeLook(std::string_view key);
  Focus::Areas focusAreas() const;

  /// Returns the camera of the map at a point, or null if something else is there.
  MapCamera* cameraAt(graphics::Point point) const;

  std::optional<std::string> slug_;
  const RouteSession::Clock clock_;
  const bool walksAtOnce_;
  const bool isOffline_;
  const ApiSettings settings_;
  const std::string languages_;
  const std::shared_ptr<const MapTheme> theme_;
  const bool reducesMotion_;
  const guidance::InterfaceTexts texts_;
  VenueSource source_;
  std::shared_ptr<view::View> root_;
  std::shared_ptr<LoadingVeil> veil_;
  std::shared_ptr<VenueList> venueList_;
  std::shared_ptr<MessagePanel> message_;
  std::shared_ptr<Note> note_;
  std::shared_ptr<ConnectionNote> connectionNote_;
  theme::Look look_;
  Focus focus_;
  std::shared_ptr<FocusRing> ring_;
  std::optional<double> noteEnd_;      // seconds; empty until the note has been visible
  std::optional<double> closuresEnd_;  // when they are fetched again; empty after a request
  std::shared_ptr<Venue> venue_;       // shown or being loaded; null while the user chooses one
  std::shared_ptr<VenueView> venueView_;

  // Without a connection
  std::unique_ptr<Reconnection> reconnection_;  // null if there is a connection
  std::unique_ptr<Reconnection> awaited_;       // while a problem is shown that may end by itself
  std::function<void()> whenSlow_;              // looks into the store; null if nothing is awaited
  std::optional<double> slowTime_;              // when that happens
  std::shared_ptr<VenueView> incoming_;         // will replace the view; may be null
  bool isIncomingReady_ = false;                // whether its first floor is loaded
  foundation::CancellationSource life_;         // of this object
  foundation::CancellationSource pictures_;     // of fetching the pictures of the venue
  view::TouchDispatcher fingers_;
  Pointer pointer_;
  std::vector<std::uint64_t> mapFingers_;
  graphics::Size size_{1280, 800};
  double scale_ = 1;
};

}  // namespace orivanta::viewer
