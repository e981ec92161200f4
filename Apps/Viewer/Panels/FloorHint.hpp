// Says on which floor the selected place is.
#pragma once

#include <functional>
#include <memory>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// A button over the map, for a place that is not on the shown floor.
class FloorHint : public Panel {
 public:
  explicit FloorHint(const guidance::InterfaceTexts& texts);

  std::function<void()> action;  ///< called after a tap

  /// Names the floor. Returns the size, which is at most as wide as `mostWidth` (points).
  graphics::Size show(const Map& floor, double mostWidth);

 private:
  const guidance::InterfaceTexts texts_;
  std::shared_ptr<Button> button_;
};

}  // namespace orivanta::viewer
