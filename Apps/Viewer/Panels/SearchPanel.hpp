// A search field, the places that it finds, and the places of the venue for browsing.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/LatestRequest.hpp"
#include "Apps/Viewer/Panels/BrowsePages.hpp"
#include "Apps/Viewer/Panels/ChoiceList.hpp"
#include "Apps/Viewer/RecentPlaces.hpp"
#include "Apps/Viewer/SearchWorker.hpp"
#include "Apps/Viewer/StopNames.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// While the field has the focus, the panel shows the results of the search. If the field is empty,
/// it shows what `BrowsePages` has. The search runs in the background and delivers its results
/// through the main queue.
class SearchPanel : public Panel {
 public:
  /// The venue must outlive the panel.
  SearchPanel(const Venue& venue, const guidance::InterfaceTexts& texts);

  /// Called with the place that the user has chosen, and with `end`.
  std::function<void(const std::shared_ptr<Location>&, std::optional<RouteEnd> end)> chosen;

  /// Called when the user has chosen the nearest of several places.
  std::function<void(NearestChoice)> nearestChosen;

  /// Returns the nearest places to offer.
  std::function<std::vector<NearestChoice>()> nearestOffered;
  std::function<void()> layoutChanged;  ///< called when the height has changed

  /// Returns the height of the closed panel, in points.
  static double barHeight();

  TextField& field() { return *field_; }
  bool isOpen() const { return field_->isFocused(); }

  /// Empties the field and gives it the focus. `end` is the end of a route for which the user
  /// searches a place, if any. If the typed text matches categories, the first results are the
  /// nearest places of these categories, except for the start of a route.
  void open(std::optional<RouteEnd> end = std::nullopt);

  /// Returns the end for which the search is open, if any.
  std::optional<RouteEnd> end() const { return end_; }

  /// Removes the focus and the text.
  void close();

  /// Leads from the places of a kind, or from all places, back to the kinds. Returns false if
  /// neither is shown.
  bool goBack();

  /// Makes a place the latest of the recent ones. Does nothing if it is null.
  void remember(const std::shared_ptr<Location>& place) { recent_.add(place); }

  /// Moves the mark in the list or edits the text. Returns false if the key does neither.
  bool handleKey(const KeyPress& press);

  /// Chooses what is marked. If nothing is and there is a text, chooses the first result; if a
  /// search is running, waits for its end.
  void chooseMarked();

  /// The number of places that the search has found.
  std::size_t count() const { return placeCount_; }

  const ChoiceList& list() const { return *list_; }

  /// Returns the height for this width, at most `mostHeight`.
  double arrange(double width, double mostHeight);
  void draw(view::Canvas& canvas) override;

 private:
  void search();
  void show(const std::vector<PlaceGroup>& groups);
  void browse(BrowsePages::Page page);
  void setSections(std::vector<ChoiceSection> sections);
  void choosePlace(const std::shared_ptr<Location>& place);
  void chooseNearest(const NearestChoice& choice);
  bool moveAcross(Key key);

  const Venue& venue_;
  const guidance::InterfaceTexts texts_;
  LatestRequest<SearchWorker> search_;
  RecentPlaces recent_;
  BrowsePages pages_;
  std::shared_ptr<TextField> field_;
  std::shared_ptr<Label> sign_;
  std::shared_ptr<Button> clear_;
  std::shared_ptr<Label> nothing_;
  std::shared_ptr<ChoiceList> list_;
  BrowsePages::Page page_;
  std::size_t placeCount_ = 0;
  bool findsNothing_ = false;  // the latest search
  bool choosesFirst_ = false;  // when the current search has ended
  std::optional<RouteEnd> end_;
};

}  // namespace orivanta::viewer
