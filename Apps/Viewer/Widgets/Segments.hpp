// A row of titles of which one is chosen.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"

namespace orivanta::viewer {

/// The titles share the width in proportion to their lengths. If the width is not sufficient, their
/// letters are smaller.
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

  /// Call after the frame was set.
  void arrange();
  void draw(view::Canvas& canvas) override;

 private:
  double fitTitles(double width);

  std::vector<std::shared_ptr<Pressable>> cells_;
  std::vector<std::shared_ptr<Label>> labels_;
  std::size_t chosen_ = 0;
};

}  // namespace orivanta::viewer
