// A search field and the places that it finds.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/Keys.hpp"
#include "Apps/Viewer/LatestRequest.hpp"
#include "Apps/Viewer/SearchWorker.hpp"
#include "Apps/Viewer/StopNames.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Shows the results while the field has the focus. If the field is empty, these are all places by
/// category. The search runs in the background and delivers its results through the main queue.
class SearchPanel : public Panel {
 public:
  /// The venue must outlive the panel.
  SearchPanel(const Venue& venue, const guidance::InterfaceTexts& texts);

  /// Called with the place that the user has chosen, and with `end`.
  std::function<void(const std::shared_ptr<Location>&, std::optional<RouteEnd> end)> chosen;

  /// Called when the user has chosen the nearest place of a category.
  std::function<void(const std::shared_ptr<Category>&)> nearestChosen;
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

  /// Moves the mark in the list or edits the text. Returns false if the key does neither.
  bool handleKey(const KeyPress& press);

  /// Chooses the marked place, or else the first one. If a search is running, waits for its end.
  void chooseMarked();

  /// The number of places in the list.
  std::size_t count() const { return placeCount_; }

  const List& list() const { return *list_; }

  /// Returns the height for this width, at most `mostHeight`.
  double arrange(double width, double mostHeight);
  void draw(view::Canvas& canvas) override;

 private:
  struct Item {
    std::shared_ptr<Location> place;     // null for a category or the title of a group
    std::string text;                    // the title, or the line below the place's name
    std::shared_ptr<Category> category;  // whose nearest place is offered; null for others

    bool canBeChosen() const { return place != nullptr || category != nullptr; }
  };

  void search();
  void show(const std::vector<PlaceGroup>& groups);
  std::shared_ptr<Row> makeRow(std::size_t index);
  void choose(Item item);

  const Venue& venue_;
  const guidance::InterfaceTexts texts_;
  LatestRequest<SearchWorker> search_;
  std::shared_ptr<TextField> field_;
  std::shared_ptr<Label> sign_;
  std::shared_ptr<Button> clear_;
  std::shared_ptr<Label> nothing_;
  std::shared_ptr<List> list_;
  std::vector<Item> items_;  // one for each row
  std::size_t placeCount_ = 0;
  bool hasSearched_ = false;   // the list shows the results of a search
  bool choosesFirst_ = false;  // when the current search has ended
  std::optional<RouteEnd> end_;
};

}  // namespace orivanta::viewer
