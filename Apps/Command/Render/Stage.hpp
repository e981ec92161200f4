// A map view without a window: loads a venue's floors and takes pictures of what it shows.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::command {

/// One thread, which is the main one for the map view.
class Stage {
 public:
  /// `size` in points, `scale` pixels per point. Throws `CommandError` when this machine cannot
  /// draw or a picture would be too large for it.
  Stage(graphics::Size size, double scale);

  /// Shows a venue, the first of `floors` to begin with, and waits for these floors of it, with
  /// progress on a terminal. What came of them, in their order.
  std::vector<FloorProgress> load(const std::shared_ptr<Venue>& venue,
                                  const std::vector<std::shared_ptr<Map>>& floors);

  /// Also the topmost view, for touches.
  const std::shared_ptr<MapView>& mapView() const { return mapView_; }

  /// One frame at a time in seconds, which rises from call to call.
  std::shared_ptr<const graphics::Image> picture(double time = 0.0);

 private:
  graphics::Size size_;
  double scale_;
  std::unique_ptr<render::OffscreenSurface> surface_;
  std::unique_ptr<render::Renderer> renderer_;  // before its surface goes
  std::shared_ptr<MapView> mapView_;
};

}  // namespace orivanta::command
