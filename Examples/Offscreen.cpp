// Draws the first floor of the web API's first venue to an image file, without a display.
#include <cstdlib>
#include <iostream>
#include <orivanta/ui.hpp>

using namespace orivanta;

namespace {

void tell(const std::string& problem) {
  if (!problem.empty()) std::cerr << problem << '\n';
}

void tell(const std::vector<LoadFailure>& failures) {
  for (const LoadFailure& failure : failures) tell(failure.reason);
}

}  // namespace

int main() {
  constexpr graphics::Size size{800, 600};  // points
  constexpr double scale = 2;               // pixels per point
  const char* const endpoint = std::getenv("ORIVANTA_ENDPOINT");
  if (endpoint != nullptr) setApiSettings({.endpoint = endpoint});
  foundation::setDiagnosticSink([](std::string_view) {});

  const auto mapView = MapView::make({{0, 0}, size});
  bool ended = false;
  const auto showFloors = [&](const VenueLoadReport& report) {
    tell(report.failures);
    mapView->venue = report.venue;
    mapView->loadFloors({{}, [&](const auto& floors) {
                           for (const FloorProgress& floor : floors) tell(floor.problem);
                           ended = true;
                         }});
  };
  const auto showFirstVenue = [&](const VenueListReport& report) {
    tell(report.failures);
    ended = report.venues.empty();
    if (ended) return;
    loadVenueReporting(APISession(), report.venues.front(), /*accessible=*/false,
                       {.ended = showFloors, .executor = foundation::mainQueue::async});
  };
  loadVenuesReporting(APISession(),
                      {.ended = showFirstVenue, .executor = foundation::mainQueue::async});
  while (!ended) {
    foundation::mainQueue::wait(1.0);
    foundation::mainQueue::drain();
  }
  if (!mapView->currentMap()) {
    std::cerr << "no floor to draw; is ORIVANTA_ENDPOINT set?\n";
    return 1;
  }

  const auto made = render::OffscreenSurface::make(static_cast<std::uint32_t>(size.width * scale),
                                                   static_cast<std::uint32_t>(size.height * scale));
  if (!made) {
    std::cerr << made.error().description << '\n';
    return 1;
  }
  const auto& surface = *made;
  render::Renderer renderer;
  renderer.render(*mapView, size, scale, 0.0, surface->framebuffer());
  if (const auto written = graphics::writePng(*surface->read(scale), "floor.png"); !written) {
    std::cerr << written.error().description << '\n';
    return 1;
  }
  std::cout << "floor.png\n";
}
