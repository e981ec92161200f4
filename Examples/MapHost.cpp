// Searches for a place, shows the route to it when it is tapped, and draws the map without a
// display.
#include <cstdlib>
#include <iostream>
#include <orivanta/ui.hpp>

using namespace orivanta;

int main(int argc, char** argv) {
  const auto fail = [](const char* problem) { return std::cerr << problem << '\n', 1; };
  const char* const endpoint = std::getenv("ORIVANTA_ENDPOINT");
  if (endpoint != nullptr) setApiSettings({.endpoint = endpoint});
  foundation::setDiagnosticSink([](std::string_view) {});
  constexpr graphics::Size size{800, 600};  // points, and pixels

  // Load the first venue on background threads, and pass it to the main queue.
  const auto mapView = MapView::make({{0, 0}, size});
  bool loaded = false;
  getVenues([&](const auto& venues) {
    if (venues.empty()) return foundation::mainQueue::async([&] { loaded = true; });
    getVenue(venues.front(), [&](const auto& venue) {
      foundation::mainQueue::async([&, venue] {
        mapView->venue = venue;
        mapView->loadFloors({{}, [&](const auto&) { loaded = true; }});
      });
    });
  });
  while (!loaded && foundation::mainQueue::wait(60)) foundation::mainQueue::drain();
  if (!mapView->currentMap()) return fail("no floor to draw");

  // Show the floor of the place, with the place in the center of the view.
  const auto found = PlaceSearch(*mapView->venue->locations).find(argc > 1 ? argv[1] : "");
  if (found.empty()) return fail("no such place");
  const auto place = found.front().places.front();
  mapView->changeMap(floorsOf(*place).front());
  mapView->camera().frame({mapView->findPosition3D(*place)});

  // A tap shows the route from the venue's first place. This one is in the center of the view.
  std::unique_ptr<RouteOverlay> route;
  const auto from = mapView->venue->locations->front();
  mapView->placeTapped = [&](const auto& tapped) {
    const auto way = tapped ? from->directionsTo(*tapped) : nullptr;
    if (way) route = std::make_unique<RouteOverlay>(mapView, way->path, from, tapped);
    if (route) route->show(1);
  };
  view::TouchDispatcher fingers(mapView);
  for (const auto phase : {view::TouchPhase::began, view::TouchPhase::ended})
    fingers.dispatch({1, phase, {size.width / 2, size.height / 2}, 0.0});
  mapView->camera().fit();
  if (route) route->arrange();
  LabelLayer labels(mapView, 1);
  while (labels.arrange()) {
  }

  const auto surface = render::OffscreenSurface::make(800, 600);
  if (!surface) return fail("cannot draw on this machine");
  render::Renderer().render(*mapView, size, 1, 0.0, (*surface)->framebuffer());
  return graphics::writePng(*(*surface)->read(), "map.png") ? 0 : 1;
}
