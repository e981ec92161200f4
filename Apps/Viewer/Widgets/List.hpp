// A list of rows that scrolls.
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

/// The texts of a row.
struct RowText {
  std::string title;
  std::string detail;                                 ///< below the title; may be empty
  std::string trailing;                               ///< at the end of the line; may be empty
  std::optional<graphics::Color> dot = std::nullopt;  ///< before the title
  double indent = 0;                                  ///< points left free before the title
};

class Row : public Pressable {
 public:
  explicit Row(const RowText& text);

  /// Creates a row without text, for classes that draw themselves.
  explicit Row(double height);

  double height() const { return height_; }  ///< points

  static constexpr double plainHeight = 44;   ///< points; of a row with only a title
  static constexpr double detailHeight = 56;  ///< points; of a row with a detail

  /// Returns the height of a row with this detail, which may be empty.
  static double heightWith(std::string_view detail);
  void setMarked(bool marked) { marked_ = marked; }
  const std::string& title() const { return title_->text(); }
  void draw(view::Canvas& canvas) override;

 protected:
  bool isMarked() const { return marked_; }
  void setHeight(double height) { height_ = height; }  ///< points; set it before the list has it

 private:
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> detail_;
  std::shared_ptr<Label> trailing_;
  std::optional<graphics::Color> dot_;
  double indent_;
  double height_;
  bool marked_ = false;
};

/// Rows that are created when they become visible.
struct RowSource {
  std::vector<double> heights;                            ///< points, one for each row
  std::function<std::shared_ptr<Row>(std::size_t)> make;  ///< creates a row of that height
  std::function<bool(std::size_t)> canBeMarked = [](auto) { return true; };
};

/// Scrolls with a finger. Rows fade at the edges of the list. Only visible rows are subviews.
class List : public view::View {
 public:
  List();

  void setRows(std::vector<std::shared_ptr<Row>> rows);

  /// For lists of any length: a row is created each time it becomes visible and dropped when it is
  /// no longer visible.
  void setSource(RowSource source);

  std::size_t size() const { return ends_.size(); }

  /// The visible rows by their index.
  const std::map<std::size_t, std::shared_ptr<Row>>& inSight() const { return inSight_; }

  double contentHeight() const { return ends_.empty() ? 0 : ends_.back(); }

  /// Returns the height of as many whole rows as fit into this height.
  double heightWithin(double most) const;

  /// Scrolls down by this many points. Stops at the ends.
  void scrollBy(double points);

  /// Scrolls as little as is needed to show the row.
  void reveal(std::size_t row);

  /// Marks one row for the keyboard, or none. Setting new rows clears the mark.
  void mark(std::optional<std::size_t> row);
  std::optional<std::size_t> marked() const { return marked_; }

  /// Moves the mark down by this many rows that can be marked, or as far as possible. The first
  /// step marks the first of them.
  void moveMark(int down);

  void arrange();
  void draw(view::Canvas& canvas) override;

 private:
  double topOf(std::size_t row) const { return row == 0 ? 0 : ends_[row - 1]; }
  std::optional<std::size_t> markableFrom(std::size_t row, int direction) const;
  void drop(std::size_t first, std::size_t last);
  Row& rowAt(std::size_t index);

  RowSource source_;
  std::vector<double> ends_;  // the lower edge of each row, from the top of the list
  std::map<std::size_t, std::shared_ptr<Row>> inSight_;
  std::optional<std::size_t> marked_;
  double offset_ = 0;
  double lastTranslation_ = 0;
};

}  // namespace orivanta::viewer
