// A map view without a window: loads a venue's floors and renders images of the view.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::command {

/// Must be used on one thread, which is the main thread of the map view.
class Stage {
 public:
  /// `size` is in points, `scale` in pixels per point. Throws `CommandError` if this machine cannot
  /// draw, or if an image would be too large for it.
  Stage(graphics::Size size, double scale);

  /// Shows a venue, starting with the first of `floors`, and waits until these floors are loaded,
  /// with progress on a terminal. Returns the results in the order of `floors`.
  std::vector<FloorProgress> load(const std::shared_ptr<Venue>& venue,
                                  const std::vector<std::shared_ptr<Map>>& floors);

  /// Also the root view, which receives touches.
  const std::shared_ptr<MapView>& mapView() const { return mapView_; }

  /// Renders one frame. `time` is in seconds and must increase from call to call.
  std::shared_ptr<const graphics::Image> picture(double time = 0.0);

 private:
  graphics::Size size_;
  double scale_;
  std::unique_ptr<render::OffscreenSurface> surface_;
  std::unique_ptr<render::Renderer> renderer_;  // destroyed before its surface
  std::shared_ptr<MapView> mapView_;
};

}  // namespace orivanta::command
