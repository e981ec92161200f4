// The buttons that zoom and fit the map, change the look and show the list of keys.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"

namespace orivanta::viewer {

/// A column of buttons, each of which does what a key does. If there is little room, the least
/// important ones are left out, first those that zoom, because two fingers do the same.
class MapButtons : public Panel {
 public:
  MapButtons();

  std::function<void(std::string_view key)> tapped;  ///< the key, see `VenueView::carryOut`

  /// Returns the possible sizes, the largest first.
  std::vector<graphics::Size> sizes() const;

  /// Shows the buttons for which there is room in one of `sizes`.
  void arrange(graphics::Size size);

 private:
  std::vector<std::shared_ptr<Button>> buttons_;
};

}  // namespace orivanta::viewer
