// The instructions of a route, with icons.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Apps/Viewer/Widgets/List.hpp"

namespace orivanta::viewer {

/// Scrolls. The rows are as high as their texts.
class StepList : public view::View {
 public:
  StepList();

  /// Called after a tap on an instruction, with its index.
  std::function<void(std::size_t index)> chosen;

  /// Shows the instructions of a route; null shows none.
  void show(const GuidedRoute* route);

  bool hasSteps() const { return !rows_.empty(); }

  /// Highlights an instruction and scrolls to it, or highlights none.
  void setCurrent(std::optional<std::size_t> index);
  std::optional<std::size_t> current() const { return list_->marked(); }

  /// Returns the height for this width, at most `mostHeight`.
  double heightFor(double width, double mostHeight);

  /// Call after the frame was set.
  void arrange();

  const List& list() const { return *list_; }

 private:
  class StepRow;

  std::shared_ptr<List> list_;
  std::vector<std::shared_ptr<StepRow>> rows_;
  graphics::Size size_;  // when it was last arranged
};

}  // namespace orivanta::viewer
