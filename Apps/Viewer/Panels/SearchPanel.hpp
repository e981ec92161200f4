// A field to type in, and the places that answer.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Search.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"

namespace orivanta::viewer {

/// The results show while the field has the focus.
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
  void chooseMarked();

  /// Its height with this width, at most `mostHeight`.
  double arrange(double width, double mostHeight);
  void draw(view::Canvas& canvas) override;

  static constexpr const char* defaultPlaceholder = "Search places";

 private:
  void search();
  void choose(std::size_t row);

  SearchIndex index_;
  std::shared_ptr<TextField> field_;
  std::shared_ptr<Label> sign_;
  std::shared_ptr<Button> clear_;
  std::shared_ptr<Label> nothing_;
  std::shared_ptr<List> list_;
  std::vector<std::shared_ptr<Location>> found_;
};

}  // namespace orivanta::viewer
