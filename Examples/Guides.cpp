// The code of the guides in Docs/guides, in their order. It is compiled, but it is not a program.
#include <iostream>
#include <optional>
#include <orivanta/ui.hpp>

using namespace orivanta;

namespace guides {

void loadOnMainThread(const std::vector<std::shared_ptr<Venue>>& venues) {
  //! [cancel loads]
  const foundation::CancellationSource source;
  const WebApiSession session =
      WebApiSession("https://maps.example.com/1/", "user", "password", "en")
          .canceledBy(source.token());
  LoadHandlers<VenueLoadReport> handlers;
  handlers.executor = foundation::mainQueue::async;  // calls `ended` in `mainQueue::drain`
  handlers.ended = [](const VenueLoadReport& report) { std::cout << *report.venue->name << '\n'; };
  for (const auto& venue : venues)
    loadVenueReporting(session, venue, /*accessible=*/false, handlers);
  source.cancel();  // ends all these loads
  //! [cancel loads]
}

void storeVenues() {
  //! [store venues]
  setApiSettings(
      {.endpoint = "https://maps.example.com/1/", .store = VenueStore::inCachesDirectory()});
  //! [store venues]
}

void showStored(const std::shared_ptr<MapView>& mapView) {
  //! [load a stored venue]
  LoadHandlers<StoredVenueReport> handlers;
  handlers.executor = foundation::mainQueue::async;
  handlers.ended = [mapView](const StoredVenueReport& report) {
    if (!report.venue) return;  // the venue is not stored
    mapView->venue = report.venue;
    mapView->downloader = std::make_shared<OfflineDownloader>();
    mapView->loadFloors({});
  };
  loadStoredVenue(APISession(), "mall", /*accessible=*/false, handlers);
  //! [load a stored venue]
}

void readTheme() {
  //! [read a theme]
  const auto file = readMapTheme("night.json");
  if (!file) {
    std::cerr << file.error().description << '\n';
    return;
  }
  for (const std::string& member : file->unknownMembers)
    std::cerr << "night.json: unknown member " << member << '\n';
  const std::shared_ptr<const MapTheme> theme = file->theme;
  //! [read a theme]
}

void setStyle(MapView& mapView, const std::shared_ptr<const MapTheme>& theme) {
  //! [set a style]
  mapView.setStyle(MapStyle::make(theme));
  //! [set a style]
}

void openWithAStyle(const std::shared_ptr<MapView>& mapView) {
  //! [open with a style]
  const auto style = MapStyle::make();
  style->setFurniture({.compass = true, .scaleBar = true, .attribution = true});
  mapView->setStyle(style);
  mapView->loadFloors({}, MapStyle::firstFloor(*mapView->venue));
  //! [open with a style]
}

class FirstView : public MapViewDelegate {
  //! [show the first view]
  void mapViewDidLoad() override { mapView->style()->showFirstView(); }
  //! [show the first view]
  std::shared_ptr<MapView> mapView;
};

void followVisitor(MapStyle& style, const std::shared_ptr<Map>& floor) {
  //! [show a position]
  style.setPosition(MapPosition{.floor = floor, .x = 420, .y = 310, .accuracyMeters = 8});
  style.setFollowing(true);
  //! [show a position]
}

void drawToFile(const std::shared_ptr<graphics::Image>& image) {
  //! [check a result]
  const foundation::Result<void> written = graphics::writePng(*image, "map.png");
  if (!written) std::cerr << written.error().description << '\n';
  //! [check a result]
}

//! [return a result]
foundation::Result<std::shared_ptr<Venue>> venueNamed(
    const std::vector<std::shared_ptr<Venue>>& venues, const std::string& slug) {
  for (const auto& venue : venues)
    if (venue->slug == slug) return venue;
  return foundation::failure("my application", 1, "there is no venue " + slug);
}
//! [return a result]

void listVenues() {
  //! [list venues]
  setApiSettings(
      {.endpoint = "https://maps.example.com/1/", .username = "user", .password = "password"});
  getVenues([](const std::vector<std::shared_ptr<Venue>>& venues) {
    for (const auto& venue : venues) std::cout << *venue->slug << ' ' << *venue->name << '\n';
  });
  //! [list venues]
}

void listVenuesWithReasons() {
  //! [list venues with reasons]
  LoadHandlers<VenueListReport> handlers;
  handlers.ended = [](const VenueListReport& report) {
    for (const LoadFailure& failure : report.failures) std::cerr << failure.reason << '\n';
    for (const auto& venue : report.venues) std::cout << *venue->name << '\n';
  };
  loadVenuesReporting(APISession(), handlers);
  //! [list venues with reasons]
}

void loadOneVenue(const std::shared_ptr<Venue>& chosen) {
  //! [load venue]
  getVenue(chosen, /*accessible=*/true, [](const std::shared_ptr<Venue>& venue) {
    for (const auto& floor : *venue->maps) std::cout << floor->name << '\n';
    for (const auto& location : *venue->locations) std::cout << *location->name << '\n';
  });
  //! [load venue]
}

std::shared_ptr<LoadHandle> loadOneVenueWithProgress(const std::shared_ptr<Venue>& chosen) {
  //! [load venue with progress]
  LoadHandlers<VenueLoadReport> handlers;
  handlers.progressed = [](const LoadProgress& progress) {
    std::cout << progress.collectionsDone << " of " << progress.collections << '\n';
  };
  handlers.ended = [](const VenueLoadReport& report) {
    for (const LoadFailure& failure : report.failures)
      std::cerr << failure.collection << ": " << failure.reason << '\n';
    std::cout << attributionText(*report.venue) << '\n';
  };
  auto load = loadVenueReporting(APISession(), chosen, /*accessible=*/false, handlers);
  // load->cancel() ends it early.
  //! [load venue with progress]
  return load;
}

std::shared_ptr<MapView> showFloors(const std::shared_ptr<Venue>& venue) {
  //! [show floors]
  auto mapView = MapView::make({{0, 0}, {800, 600}});  // points
  mapView->venue = venue;
  mapView->loadFloors({{}, [](const std::vector<FloorProgress>& floors) {
                         for (const FloorProgress& floor : floors)
                           if (!floor.problem.empty()) std::cerr << floor.problem << '\n';
                       }});
  //! [show floors]
  return mapView;
}

void drawFrame(MapView& mapView, render::Renderer& renderer, double seconds) {
  const graphics::Size size{800, 600};
  const double pixelsPerPoint = 1;
  //! [draw a frame]
  foundation::mainQueue::drain();
  mapView.setFrame({{0, 0}, size});
  renderer.render(mapView, size, pixelsPerPoint, seconds);
  //! [draw a frame]
}

void switchFloors(MapView& mapView) {
  //! [switch floors]
  for (const auto& floor : *mapView.venue->maps)
    if (floor->name == "First floor") mapView.changeMap(floor);
  //! [switch floors]
}

//! [handle taps]
class Selection : public MapViewDelegate {
 public:
  void mapViewDidLoad() override { std::cout << "the first floor is shown\n"; }
  void polygonSelected(const std::shared_ptr<Polygon>& polygon) override {
    for (const auto& location : polygon->locations)
      if (const auto place = location.lock()) std::cout << *place->name << '\n';
  }
  void nothingSelected() override { std::cout << "nothing\n"; }
};

// The map view does not own its delegate.
std::shared_ptr<Selection> watchTaps(MapView& mapView) {
  auto selection = std::make_shared<Selection>();
  mapView.delegate = selection;
  return selection;
}
//! [handle taps]

void moveCamera(MapView& mapView, const Location& location) {
  //! [move camera]
  MapCamera& camera = mapView.camera();
  camera.frame({mapView.findPosition3D(location)});  // shows a place
  camera.zoomBy(2, {400, 300});                      // twice as close to this point
  camera.fit();                                      // shows the whole floor
  //! [move camera]
}

void glideCamera(MapView& mapView, render::Renderer& renderer, double seconds) {
  const graphics::Size size{800, 600};
  const double pixelsPerPoint = 1;
  //! [glide camera]
  mapView.camera().rotateBy(1.57, CameraMotion::glide);  // radians

  // In each frame:
  mapView.camera().advance(seconds);
  renderer.render(mapView, size, pixelsPerPoint, seconds);
  //! [glide camera]
}

void searchPlaces(const Venue& venue) {
  //! [search places]
  const PlaceSearch search(venue);
  for (const FoundGroup& group : search.search("coff"))
    for (const FoundPlace& found : group.places)
      std::cout << found.entry->name << ", " << floorLabels(found.entry->floors) << '\n';
  //! [search places]
}

std::shared_ptr<Location> placeNamed(const Venue& venue, const std::string& text) {
  //! [place named]
  const NamedPlaces places = placesNamed(venue, text);
  if (places.locations.size() > 1) std::cerr << text << " is ambiguous\n";
  //! [place named]
  return places.locations.empty() ? nullptr : places.locations.front();
}

std::shared_ptr<Directions> findRoute(Location& from, Location& to) {
  //! [find route]
  std::shared_ptr<Directions> directions = from.directionsTo(to);
  if (!directions) return nullptr;
  for (const Direction& direction : directions->directions)
    std::cout << direction.instruction << '\n';
  //! [find route]
  return directions;
}

void drawRoute(MapView& mapView, const Directions& directions) {
  //! [draw route]
  mapView.drawPath(directions.path);
  mapView.highlightNode(directions.path.back());
  // mapView.clearPaths() and mapView.removeHighlightNode() remove them.
  //! [draw route]
}

std::unique_ptr<RouteOverlay> showRoute(const std::shared_ptr<MapView>& mapView,
                                        const Directions& directions) {
  //! [show route]
  auto overlay = std::make_unique<RouteOverlay>(mapView, directions.path);
  const double pixelsPerPoint = 1;
  overlay->show(pixelsPerPoint);
  for (const FloorVisit& visit : overlay->visits()) std::cout << floorName(*visit.floor) << '\n';
  // overlay->arrange() before each frame keeps the marks apart; destroying it removes the route.
  //! [show route]
  return overlay;
}

std::optional<guidance::Itinerary> planRoute(const Venue& venue,
                                             const std::shared_ptr<Location>& entrance,
                                             const std::shared_ptr<Location>& shop) {
  //! [plan route]
  const auto guide = guidance::Guide::make(venue);  // keep it: creating it takes time
  guidance::Request request;
  request.stops = {entrance, shop};
  const guidance::Plan plan = guide->plan(request);
  if (plan.problem) {
    std::cerr << guidance::Narrator("en").text(*plan.problem, *shop->name) << '\n';
    return std::nullopt;
  }
  return plan.itineraries.front();
  //! [plan route]
}

guidance::Plan planForWheelchair(const guidance::Guide& guide, guidance::Request request) {
  //! [plan with profile]
  request.profile = guidance::Profile::stepFree();
  request.profile.outdoors = guidance::Use::avoided;
  request.closures = guidance::Closures({"lift-north"});  // out of order
  request.at = guidance::LocalTime::parse("2026-11-21T18:30");
  return guide.plan(request);
  //! [plan with profile]
}

void printSteps(const guidance::Guide& guide, const guidance::Itinerary& itinerary) {
  //! [print steps]
  const guidance::Narrator narrator("de-AT, en;q=0.5");
  for (const std::string& text : narrator.texts(itinerary, guide.steps(itinerary)))
    std::cout << text << '\n';
  std::cout << narrator.summary(itinerary) << '\n';
  //! [print steps]
}

void followRoute(const guidance::Guide& guide, const guidance::Itinerary& itinerary,
                 guidance::Request request, const guidance::Position& position, double seconds) {
  //! [follow route]
  guidance::Follower follower(guide, itinerary);
  const guidance::Narrator narrator("en");
  std::size_t said = 0;  // number of instructions

  // For each position, with the time at which it was measured:
  const guidance::Progress& progress = follower.update(position, seconds);
  for (; said < follower.steps().size() && said <= progress.announced; ++said)
    std::cout << narrator.text(follower.itinerary(), follower.steps(), said) << '\n';
  if (progress.arrived) std::cout << "arrived\n";
  if (progress.offRoute) {
    request.stops.front() = position;
    const guidance::Plan plan = guide.plan(request);
    if (!plan.problem) {
      follower = guidance::Follower(guide, plan.itineraries.front());
      said = 0;
    }
  }
  //! [follow route]
}

void highlight(MapView& mapView, const Location& location) {
  //! [highlight]
  for (const auto& polygon : location.polygons)
    mapView.highlightPolygon(polygon, graphics::colors::orange);
  // mapView.clearHighlightedPolygons() gives them their own colors again.
  //! [highlight]
}

void mark(MapView& mapView, const Location& location) {
  //! [mark]
  const double pixelsPerPoint = 1;
  const auto marker = makePinMarker(graphics::colors::red, 34, location.name.value_or(""),
                                    labelStyle(), pixelsPerPoint);
  marker->setPosition(mapView.findPosition3D(location));
  mapView.addMarker(marker);
  //! [mark]
}

std::unique_ptr<LabelLayer> showNames(const std::shared_ptr<MapView>& mapView) {
  //! [show names]
  const double pixelsPerPoint = 1;
  auto names = std::make_unique<LabelLayer>(mapView, pixelsPerPoint);
  names->arrange();  // before each frame
  //! [show names]
  return names;
}

void loadTwoVenues(const std::shared_ptr<Venue>& one, const std::shared_ptr<Venue>& other) {
  //! [several venues]
  const WebApiSession session("https://maps.example.com/1/", "user", "password", "en");
  LoadHandlers<VenueLoadReport> handlers;
  handlers.executor = foundation::mainQueue::async;
  handlers.ended = [](const VenueLoadReport& report) {
    std::cout << *report.venue->name << ": " << report.venue->locations->size() << " places\n";
  };
  loadVenueReporting(session, one, /*accessible=*/true, handlers);
  loadVenueReporting(session, other, /*accessible=*/true, handlers);
  //! [several venues]
}

std::shared_ptr<Directions> findRouteIn(const Venue& venue, Location& from, Location& to) {
  //! [route in venue]
  std::shared_ptr<Directions> directions = getDirections(venue, from, to);
  //! [route in venue]
  return directions;
}

//! [own transport]
/// Answers every request with an empty list.
class EmptyTransport : public network::UrlTransport {
 public:
  void start(network::UrlRequest request, Completion completed) override {
    network::UrlAnswer answer;
    answer.response.url = request.url;
    answer.response.statusCode = 200;
    answer.body = "[]";
    completed(std::move(answer));
  }
};

void useOwnTransport() {
  ApiSettings settings;
  settings.endpoint = "https://maps.example.com/1/";
  settings.transport = std::make_shared<EmptyTransport>();
  setApiSettings(settings);
}
//! [own transport]

}  // namespace guides
