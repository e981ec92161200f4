// The names of the stops of a route.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/StopNames.hpp"
#include "Apps/Viewer/Widgets/Button.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// One line for each stop, with a line of dots beside them. Stops in between have their number, as
/// on the map, and a button that removes them.
class StopLines : public view::View {
 public:
  explicit StopLines(const guidance::InterfaceTexts& texts);
  ~StopLines() override;
  StopLines(const StopLines&) = delete;
  StopLines& operator=(const StopLines&) = delete;

  std::function<void()> closed;              ///< the route is not wanted any more
  std::function<void()> swapped;             ///< the way back is wanted
  std::function<void(RouteEnd end)> chosen;  ///< another place is wanted for this end
  std::function<void(std::size_t)> removed;  ///< the index among the stops in between

  void show(const StopNames& names);

  /// Returns the height for this width.
  double arrange(double width);
  void draw(view::Canvas& canvas) override;

 private:
  struct Line;

  void add(const std::optional<std::string>& name, const char* wishKey);

  const guidance::InterfaceTexts texts_;
  std::vector<Line> lines_;  // in order, at least two after `show`
  std::shared_ptr<Button> swap_;
  std::shared_ptr<Button> close_;
};

}  // namespace orivanta::viewer
