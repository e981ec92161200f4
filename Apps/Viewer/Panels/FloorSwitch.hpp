// The floors of a venue, one below the other as they lie.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/UI/FloorLoad.hpp"

namespace orivanta::viewer {

/// The highest floor on top. Those that cannot be shown are pale.
class FloorSwitch : public Panel {
 public:
  explicit FloorSwitch(std::vector<std::shared_ptr<Map>> floors);

  std::function<void(const std::shared_ptr<Map>&)> chosen;

  void setState(const Map& floor, FloorState state);

  /// A wheel turns in place of its name; null for none.
  void setAwaited(const std::shared_ptr<Map>& floor);
  void setCurrent(std::shared_ptr<Map> floor);

  /// Puts a dot on the floors that a route passes.
  void setRoute(const std::vector<std::shared_ptr<Map>>& floors);

  /// The floor so many places further up; null at the end. Floors that cannot be shown are skipped.
  std::shared_ptr<Map> neighbour(int up) const;

  /// Its size, at most so high but for one floor. What is hidden is a scroll away; the floor that
  /// shows is in sight.
  graphics::Size arrange(double mostHeight);

  /// With all floors.
  double wholeHeight() const;

 private:
  class Cell;

  void revealCurrent();

  std::vector<std::shared_ptr<Cell>> cells_;  // from the top
  std::shared_ptr<List> list_ = std::make_shared<List>();
  std::shared_ptr<Map> current_;
};

}  // namespace orivanta::viewer
