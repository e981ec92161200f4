// Titles of which one is chosen.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"

namespace orivanta::viewer {

/// The titles are in one row, or in as many rows as they need.
class Segments : public view::View {
 public:
  /// Called after a tap on a title, with its index.
  std::function<void(std::size_t index)> chosen;

  /// Replaces the titles and chooses the first one.
  void setTitles(const std::vector<std::string>& titles);

  void setChosen(std::size_t index) { chosen_ = index; }
  std::size_t chosenIndex() const { return chosen_; }
  std::size_t size() const { return cells_.size(); }
  const std::shared_ptr<Pressable>& cell(std::size_t index) const { return cells_[index]; }

  /// Places the titles for this width and returns the height.
  double arrange(double width);
  void draw(view::Canvas& canvas) override;

 private:
  std::vector<std::size_t> rowSizes(double width);
  double arrangeRow(std::size_t first, std::size_t count, double width, double top);

  std::vector<std::shared_ptr<Pressable>> cells_;
  std::vector<std::shared_ptr<Label>> labels_;
  std::size_t chosen_ = 0;
};

}  // namespace orivanta::viewer
