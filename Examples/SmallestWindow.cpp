// A window with the map of the web API's first venue. Touches and the left mouse button move the
// map.
#include <SDL.h>

#include <cstdlib>
#include <iostream>
#include <orivanta/ui.hpp>

using namespace orivanta;

namespace {

double now() { return static_cast<double>(SDL_GetTicks64()) / 1000; }

/// Loads the first venue on background threads and passes it to the map view on the main queue.
void showFirstVenue(const std::shared_ptr<MapView>& mapView) {
  const auto showFloors = [mapView](const VenueLoadReport& report) {
    mapView->venue = report.venue;
    mapView->loadFloors({});
  };
  const auto loadFirst = [showFloors](const VenueListReport& report) {
    if (report.venues.empty()) {
      std::cerr << "no venue; is ORIVANTA_ENDPOINT set?\n";
      return;
    }
    loadVenueReporting(APISession(), report.venues.front(), /*accessible=*/false,
                       {.ended = showFloors, .executor = foundation::mainQueue::async});
  };
  loadVenuesReporting(APISession(), {.ended = loadFirst, .executor = foundation::mainQueue::async});
}

/// Wakes the event loop when the main queue has tasks.
void wakeWithEvents() {
  foundation::mainQueue::setWake([type = SDL_RegisterEvents(1)] {
    SDL_Event event{};
    event.type = type;
    SDL_PushEvent(&event);
  });
}

/// Sends mouse events as touches.
void sendTouch(const SDL_Event& event, graphics::Size size, view::TouchDispatcher& fingers) {
  const auto send = [&](std::uint64_t finger, view::TouchPhase phase, double x, double y) {
    fingers.dispatch({finger, phase, {x, y}, now()});
  };
  const double x = event.tfinger.x * size.width;
  const double y = event.tfinger.y * size.height;
  const auto finger = static_cast<std::uint64_t>(event.tfinger.fingerId);
  switch (event.type) {
    case SDL_FINGERDOWN:
      return send(finger, view::TouchPhase::began, x, y);
    case SDL_FINGERMOTION:
      return send(finger, view::TouchPhase::moved, x, y);
    case SDL_FINGERUP:
      return send(finger, view::TouchPhase::ended, x, y);
    default:
      return;
  }
}

}  // namespace

int main() {
  const char* const endpoint = std::getenv("ORIVANTA_ENDPOINT");
  if (endpoint != nullptr) setApiSettings({.endpoint = endpoint});
  SDL_SetHint(SDL_HINT_OPENGL_ES_DRIVER, "1");
  SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "1");
  if (SDL_Init(SDL_INIT_VIDEO) != 0 || std::atexit(SDL_Quit) != 0) return 1;
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_ES);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
  SDL_Window* const window =
      SDL_CreateWindow("Orivanta", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 1000, 700,
                       SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE);
  if (window == nullptr || SDL_GL_CreateContext(window) == nullptr) return 1;
  SDL_GL_SetSwapInterval(1);

  const auto mapView = MapView::make();
  mapView->allowsSimultaneousGestures = true;
  view::TouchDispatcher fingers(mapView);
  render::Renderer renderer;
  wakeWithEvents();
  showFirstVenue(mapView);
  for (bool open = true; open;) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    const graphics::Size size{static_cast<double>(width), static_cast<double>(height)};
    SDL_Event event;
    int came = mapView->needsFrame() ? SDL_PollEvent(&event) : SDL_WaitEvent(&event);
    for (; came == 1; came = SDL_PollEvent(&event)) {
      sendTouch(event, size, fingers);
      open = open && event.type != SDL_QUIT;
      if (event.type == SDL_WINDOWEVENT) view::View::setNeedsFrame();
    }
    foundation::mainQueue::drain();
    mapView->setFrame({{0, 0}, size});
    if (!mapView->needsFrame()) continue;
    renderer.render(*mapView, size, 1.0, now());
    SDL_GL_SwapWindow(window);
  }
  foundation::mainQueue::setWake(nullptr);
}
