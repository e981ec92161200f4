// A field to type in, and the places that answer.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/BackgroundSearch.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"

namespace orivanta::viewer {

/// The results show while the field has the focus. While nothing is typed these are all places, by
/// category. The search runs in the background: its results come in through the main queue.
class SearchPanel : public Panel {
 public:
  explicit SearchPanel(const Venue& venue);

  std::function<void(const std::shared_ptr<Location>&)> chosen;
  std::function<void()> layoutChanged;  ///< it has become higher or lower

  TextField& field() { return *field_; }
  bool isOpen() const { return field_->isFocused(); }

  /// Gives the field the focus, with no text, to look for what the placeholder says.
  void open(const std::string& placeholder = defaultPlaceholder);

  /// Takes the focus and the text.
  void close();

  void moveMark(int down) { list_->moveMark(down); }

  /// Chooses the marked place, or the first one; of a search under way as soon as it has ended.
  void chooseMarked();

  /// How many places the list holds.
  std::size_t count() const { return placeCount_; }

  const List& list() const { return *list_; }

  /// Its height with this width, at most `mostHeight`.
  double arrange(double width, double mostHeight);
  void draw(view::Canvas& canvas) override;

  static constexpr const char* defaultPlaceholder = "Search places";

 private:
  struct Item {
    std::shared_ptr<Location> place;  // null for the title of a group
    std::string text;                 // the title, or what the row says below the place's name
  };

  void search();
  void show(const std::vector<PlaceGroup>& groups);
  std::shared_ptr<Row> makeRow(std::size_t index);
  void choose(std::shared_ptr<Location> place);

  BackgroundSearch search_;
  std::shared_ptr<TextField> field_;
  std::shared_ptr<Label> sign_;
  std::shared_ptr<Button> clear_;
  std::shared_ptr<Label> nothing_;
  std::shared_ptr<List> list_;
  std::vector<Item> items_;  // one for each row
  std::size_t placeCount_ = 0;
  bool hasSearched_ = false;   // what the list shows is the answer to something
  bool choosesFirst_ = false;  // as soon as the search under way has ended
};

}  // namespace orivanta::viewer
