// Uses the public headers of the map view and a few symbols of each part of its library.
#include <orivanta/ui.hpp>

#include <iostream>

using namespace orivanta;

int main() {
  const auto mapView = MapView::make({{0, 0}, {320, 240}});
  mapView->layoutIfNeeded();
  const auto label = makeLabelMarker("Atrium", labelStyle(), 1.0);
  const auto floor = scene::Node::make(scene::makeFloor());
  auto surface = render::OffscreenSurface::make(320, 240);
  if (!label || floor->boundingBox().isEmpty() || !surface) return 1;
  render::Renderer renderer;
  renderer.render(*mapView, {320, 240}, 1.0, 0.0, surface.value()->framebuffer());
  std::cout << "picture " << surface.value()->read()->width() << '\n';
}
