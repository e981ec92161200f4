// Draws a map view on one thread while another thread changes it.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

TEST(MapViewThreads, ChangesWhileItIsDrawn) {
  ShownVenue shown;
  MapView& mapView = *shown.mapView;
  std::atomic<int> frames = 0;
  std::atomic<bool> done = false;
  std::thread drawing([&] {
    auto surface = render::OffscreenSurface::make(200, 200);
    ASSERT_TRUE(surface);
    render::Renderer renderer;
    while (!done) {
      renderer.render(mapView, {200, 200}, 1.0, frames * 0.1, surface.value()->framebuffer());
      ++frames;
    }
  });
  const auto image = makePinImage(graphics::colors::red, 20, 1.0);
  const auto a = shown.node(100, 100, 0.5);
  const auto b = shown.node(900, 900, 0.5);
  const auto style = MapStyle::make();
  style->setFurniture({true, true, true});
  style->setFollowing(true);
  for (int round = 0; round < 200 || frames < 5; ++round) {
    style->setTheme(round % 2 == 0 ? MapTheme::dark() : MapTheme::light());
    mapView.setStyle(round % 5 == 0 ? nullptr : style);
    if (round % 7 == 0) style->finish();
    foundation::mainQueue::drain();
    style->setPosition(MapPosition{shown.floor(0), round * 2.0, 500, 0, 5, round * 0.1});
    mapView.camera().setInsets({round * 0.1, 0, 0, 0});
    const auto marker = makeImageMarker(image);
    marker->setPosition({static_cast<float>(round % 10) * 100, 500, 0});
    marker->hideWhenCollide = true;
    mapView.addMarker(marker);
    mapView.highlightPolygon(shown.polygon("cafe"), graphics::colors::orange);
    mapView.cameraOrbit->setEulerAngle(scene::Axis::z, static_cast<float>(round) * 0.01F);
    mapView.updateMarkerVisibility();
    mapView.drawPath({a, b, a});
    mapView.highlightNode(b);
    mapView.changeMap(round % 2);
    mapView.clearHighlightedPolygons();
    mapView.clearPaths();
    if (round % 3 != 0) mapView.removeMarker(marker);
  }
  done = true;
  drawing.join();
  EXPECT_GE(frames, 5);
}

}  // namespace
}  // namespace orivanta::test
