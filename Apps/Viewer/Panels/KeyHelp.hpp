// The list of keys.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"

namespace orivanta::viewer {

class KeyHelp : public Panel {
 public:
  KeyHelp();

  /// Whether there are venues to go back to.
  void setWayBack(bool offered) { offersWayBack_ = offered; }

  std::function<void()> closed;

  graphics::Size arrange(graphics::Size room);

 private:
  bool offersWayBack_ = false;
  std::shared_ptr<Label> title_;
  std::shared_ptr<Button> close_;
  std::vector<std::pair<std::shared_ptr<Label>, std::shared_ptr<Label>>> lines_;
};

}  // namespace orivanta::viewer
