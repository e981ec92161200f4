// The list of keys.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

class KeyHelp : public Panel {
 public:
  explicit KeyHelp(const guidance::InterfaceTexts& texts);

  /// Whether to list the key that goes back to the list of venues.
  void setWayBack(bool offered);

  std::function<void()> closed;

  /// Returns the size within `room`. If the room is too low, the lines scroll.
  graphics::Size arrange(graphics::Size room);

 private:
  class Line;

  void arrangeColumns(double width);

  std::shared_ptr<Label> title_;
  std::shared_ptr<Button> close_;
  std::vector<std::shared_ptr<Line>> lines_;  // the last one is the key that goes back
  std::shared_ptr<List> list_;
};

}  // namespace orivanta::viewer
