// Rows one below the other, more than may fit.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"

namespace orivanta::viewer {

/// What a row says.
struct RowText {
  std::string title;
  std::string detail;                                 ///< below the title; may be empty
  std::string trailing;                               ///< at the end of the line; may be empty
  std::optional<graphics::Color> dot = std::nullopt;  ///< before the title
};

class Row : public Pressable {
 public:
  explicit Row(const RowText& text);

  /// Without text, for a kind that draws itself.
  explicit Row(double height);

  double height() const { return height_; }  ///< points

  /// The height of a row with such a detail, which may be empty.
  static double heightWith(std::string_view detail);
  void setMarked(bool marked) { marked_ = marked; }
  const std::string& title() const { return title_->text(); }
  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> detail_;
  std::shared_ptr<Label> trailing_;
  std::optional<graphics::Color> dot_;
  double height_;
  bool marked_ = false;
};

/// Rows that are made when they come into sight.
struct RowSource {
  std::vector<double> heights;                            ///< points, one for each row
  std::function<std::shared_ptr<Row>(std::size_t)> make;  ///< as high as `heights` says
  std::function<bool(std::size_t)> canBeMarked = [](auto) { return true; };
};

/// Scrolls under a finger. Rows fade where they leave the list; only those in sight are subviews.
class List : public view::View {
 public:
  List();

  void setRows(std::vector<std::shared_ptr<Row>> rows);

  /// For lists of any length: a row is made each time it comes into sight and dropped when it
  /// leaves it.
  void setSource(RowSource source);

  std::size_t size() const { return ends_.size(); }

  /// The rows in sight, by their place in the list.
  const std::map<std::size_t, std::shared_ptr<Row>>& inSight() const { return inSight_; }

  double contentHeight() const { return ends_.empty() ? 0 : ends_.back(); }

  /// Of as many whole rows as are no higher than this.
  double heightWithin(double most) const;

  /// Downwards by points; stops at the ends.
  void scrollBy(double points);

  /// Scrolls as little as shows the row.
  void reveal(std::size_t row);

  /// Marks one row for the keyboard, none when there is nothing. New rows have none.
  void mark(std::optional<std::size_t> row);
  std::optional<std::size_t> marked() const { return marked_; }

  /// Down by so many rows that can be marked, as far as there are any; the first step marks the
  /// first of them.
  void moveMark(int down);

  void arrange();
  void draw(view::Canvas& canvas) override;

 private:
  double topOf(std::size_t row) const { return row == 0 ? 0 : ends_[row - 1]; }
  std::optional<std::size_t> markableFrom(std::size_t row, int direction) const;
  void drop(std::size_t first, std::size_t last);
  Row& rowAt(std::size_t index);

  RowSource source_;
  std::vector<double> ends_;  // the lower edge of each row, from the upper edge of the first
  std::map<std::size_t, std::shared_ptr<Row>> inSight_;
  std::optional<std::size_t> marked_;
  double offset_ = 0;
  double lastTranslation_ = 0;
};

}  // namespace orivanta::viewer
