// Buttons for the floors of a venue, in a column.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/UI/FloorLoad.hpp"

namespace orivanta::viewer {

/// The highest floor is at the top. Floors that are not ready have a less important color.
class FloorSwitch : public Panel {
 public:
  explicit FloorSwitch(std::vector<std::shared_ptr<Map>> floors);

  std::function<void(const std::shared_ptr<Map>&)> chosen;

  void setState(const Map& floor, FloorState state);

  /// Shows an activity indicator in place of the floor's name. Null removes it.
  void setAwaited(const std::shared_ptr<Map>& floor);
  void setCurrent(std::shared_ptr<Map> floor);

  /// Puts a dot on the floors that a route visits.
  void setRoute(const std::vector<std::shared_ptr<Map>>& floors);

  /// Returns the floor `up` positions higher, or null if there is none. Skips floors that cannot be
  /// shown.
  std::shared_ptr<Map> neighbor(int up) const;

  /// Returns the size. The height is at most `mostHeight`, but never less than one floor. The
  /// remaining floors can be scrolled to, and the current floor is visible.
  graphics::Size arrange(double mostHeight);

  std::size_t count() const { return cells_.size(); }  ///< of floors

 private:
  class Cell;

  void revealCurrent();

  std::vector<std::shared_ptr<Cell>> cells_;  // from the top
  std::shared_ptr<List> list_ = std::make_shared<List>();
  std::shared_ptr<Map> current_;
};

}  // namespace orivanta::viewer
