// What the viewer shows and does, without a window.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/Panels/LoadingVeil.hpp"
#include "Apps/Viewer/Panels/MessagePanel.hpp"
#include "Apps/Viewer/Panels/Note.hpp"
#include "Apps/Viewer/Panels/VenueList.hpp"
#include "Apps/Viewer/Pointer.hpp"
#include "Apps/Viewer/VenueSource.hpp"
#include "Apps/Viewer/VenueView.hpp"
#include "Platform/View/TouchDispatcher.hpp"

namespace orivanta::viewer {

struct ViewerOptions {
  ApiSettings settings;             ///< all but the observer
  std::optional<std::string> slug;  ///< of the venue; a list of all when there is none
};

/// A host shows `root` and brings what people do, with times in seconds that rise. It drains the
/// main queue, which is where loads come in. Main thread.
class Viewer {
 public:
  explicit Viewer(ViewerOptions options);

  std::function<void()> pictureWanted;                 ///< the key for it was pressed
  std::function<void(std::string_view what)> reached;  ///< a step of loading is done

  const std::shared_ptr<view::View>& root() const { return root_; }

  /// `size` in points, `scale` pixels per point.
  void resize(graphics::Size size, double scale);

  void touch(std::span<const view::Touch> touches);
  void cancelTouches(double time);
  Pointer& pointer() { return pointer_; }
  void wheel(graphics::Point at, double steps);
  void keyPressed(const KeyPress& press);
  void textTyped(std::string_view text);
  void textComposed(std::string_view text);

  /// Before each frame.
  void advance(double time);

  /// Whether the picture changes though nobody does anything.
  bool isMoving() const;

  /// Whether there is a floor to see, and nothing over it.
  bool showsMap() const;

  /// Whether somebody is typing.
  bool wantsText() const;

  /// Where what is typed shows, in the root; nothing while nobody types.
  std::optional<graphics::Rect> textPlace() const;

  /// Leaves the venue, loaded or not, for the list. Not without one to choose from: when there is
  /// one venue only and it was asked for.
  void goBack();
  bool canGoBack() const;

  std::string title() const;                                                  ///< of the window
  const std::shared_ptr<VenueView>& venueView() const { return venueView_; }  ///< null without one
  const MessagePanel* message() const;  ///< null when there is none

  /// Shows a sentence for a while, behind one that shows already.
  void remark(const std::string& sentence);

  /// What was remarked and still shows; empty when nothing does.
  std::string note() const;
  VenueList& venueList() { return *venueList_; }

 private:
  friend class Pointer;

  void arrange();
  void listVenues();
  void choose(const VenueSource::Venues& venues);
  void open(const std::shared_ptr<Venue>& venue);
  void showFloors();
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
  VenueSource::Handlers handlers(std::function<void()> retry);
  std::function<void()> wayBack();

  /// The camera of the map under a point; null when something else lies there.
  MapCamera* cameraAt(graphics::Point point) const;

  std::optional<std::string> slug_;
  VenueSource source_;
  std::shared_ptr<view::View> root_;
  std::shared_ptr<LoadingVeil> veil_;
  std::shared_ptr<VenueList> venueList_;
  std::shared_ptr<MessagePanel> message_;
  std::shared_ptr<Note> note_;
  std::optional<double> noteEnd_;  // seconds; nothing until somebody has had a chance to see it
  std::shared_ptr<Venue> venue_;   // that is shown or about to be; null while one is to be chosen
  std::shared_ptr<VenueView> venueView_;
  view::TouchDispatcher fingers_;
  Pointer pointer_;
  std::vector<std::uint64_t> mapFingers_;
  graphics::Size size_{1280, 800};
  double scale_ = 1;
};

}  // namespace orivanta::viewer
