// The buttons that zoom and fit the map and show the list of keys.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"

namespace orivanta::viewer {

/// A column of buttons, each of which does what a key does.
class MapButtons : public Panel {
 public:
  MapButtons();

  std::function<void(std::string_view key)> tapped;  ///< the key, see `VenueView::carryOut`

  /// Returns the size.
  graphics::Size arrange();

 private:
  std::vector<std::shared_ptr<Button>> buttons_;
};

}  // namespace orivanta::viewer
