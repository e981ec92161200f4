// Rows one below the other, more than may fit.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
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

/// Scrolls under a finger. Rows fade where they leave the list.
class List : public view::View {
 public:
  List();

  void setRows(std::vector<std::shared_ptr<Row>> rows);
  const std::vector<std::shared_ptr<Row>>& rows() const { return rows_; }
  double contentHeight() const;

  /// Of as many whole rows as are no higher than this.
  double heightWithin(double most) const;

  /// Downwards by points; stops at the ends.
  void scrollBy(double points);

  /// Scrolls as little as shows the row.
  void reveal(std::size_t row);

  /// Marks one row for the keyboard, none when there is nothing. New rows have none.
  void mark(std::optional<std::size_t> row);
  std::optional<std::size_t> marked() const { return marked_; }

  /// Down by so many rows, as far as there are any; the first step marks the first row.
  void moveMark(int down);

  void arrange();
  void draw(view::Canvas& canvas) override;

 private:
  std::vector<std::shared_ptr<Row>> rows_;
  std::optional<std::size_t> marked_;
  double offset_ = 0;
  double lastTranslation_ = 0;
};

}  // namespace orivanta::viewer
