#include "Apps/Command/Render/RenderVenue.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <boost/json/array.hpp>
#include <cmath>
#include <fstream>
#include <memory>
#include <set>
#include <utility>

#include "Apps/Command/Json.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/Places.hpp"
#include "Apps/Command/Render/Animation.hpp"
#include "Apps/Command/Render/AttributionView.hpp"
#include "Apps/Command/Render/CameraPlacement.hpp"
#include "Apps/Command/Render/LocationMarkers.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Command/Render/RouteOnMap.hpp"
#include "Apps/Command/Render/Stage.hpp"
#include "Apps/Command/Render/TouchRecording.hpp"
#include "Apps/Command/Session.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/Attribution.hpp"
#include "Source/Directions.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr double largestTilt = 60;  // degrees; as far as the map view's own gesture goes
constexpr double framesPerSecond = 12.5;

void checkUse(const RenderVenueOptions& options) {
  const auto check = [](bool fits, const char* text) {
    if (!fits) throw CommandError(ExitCode::wrongUse, text);
  };
  check(options.scale > 0 && options.scale <= 8, "--scale: give a number above 0, up to 8");
  check(options.tilt >= 0 && options.tilt < largestTilt, "--tilt: give degrees from 0 to below 60");
  check(std::isfinite(options.turn), "--turn: give degrees");
  check(options.zoom >= 0.01 && options.zoom <= 100, "--zoom: give a number from 0.01 to 100");
  parseCorner(options.attribution);
  check(options.frames >= 0 && options.frames <= 9999, "--frames: give a number up to 9999");
}

// What the pictures show, found in the venue before anything is drawn.
struct Contents {
  std::vector<std::shared_ptr<Map>> floors;  // of the pictures; one may come again
  std::vector<const RouteVisit*> visits;     // that each picture shows, when it shows only one
  std::vector<Highlight> highlights;
  std::unique_ptr<RouteOnMap> route;
  std::unique_ptr<LocationMarkers> markers;
  std::vector<view::Touch> touches;
};

std::unique_ptr<RouteOnMap> findRoute(const RouteEnd& from, const RouteEnd& to,
                                      const RenderVenueOptions& options) {
  const auto directions = getDirections(from.nodes, to.nodes, from.place, to.place);
  if (!directions)
    throw CommandError(ExitCode::notFound,
                       fmt::format("no {}route from {}", options.accessible ? "accessible " : "",
                                   fmt::join(options.route, " to ")));
  return std::make_unique<RouteOnMap>(directions->path, from.place, to.place);
}

std::vector<view::Touch> touchesIn(const std::string& name) {
  std::ifstream file(name);
  if (!file)
    throw CommandError(ExitCode::wrongUse, fmt::format("--touches: cannot read \"{}\"", name));
  return readTouches(file, name);
}

Contents findContents(const Venue& venue, const RenderVenueOptions& options) {
  Contents contents;
  std::vector<std::shared_ptr<Location>> pinned;
  std::vector<std::shared_ptr<Location>> ends;
  for (const std::string& text : options.markers) pinned.push_back(findLocation(venue, text));
  for (const std::string& text : options.highlights)
    contents.highlights.push_back(parseHighlight(venue, text));
  if (!options.route.empty()) {
    const RouteEnd from = findRouteEnd(venue, {options.route[0]});
    const RouteEnd to = findRouteEnd(venue, {options.route[1]});
    contents.route = findRoute(from, to, options);
    for (const RouteEnd* end : {&from, &to})
      if (end->place) ends.push_back(end->place);
  }
  if (contents.route && options.map.empty()) {
    for (const RouteVisit& visit : contents.route->visits()) {
      contents.floors.push_back(visit.floor);
      contents.visits.push_back(&visit);
    }
  } else {
    contents.floors = chooseFloors(venue, options.map);
    contents.visits.resize(contents.floors.size(), nullptr);
  }
  contents.markers =
      std::make_unique<LocationMarkers>(std::move(pinned), options.labels, std::move(ends));
  if (options.touchesFile) contents.touches = touchesIn(*options.touchesFile);
  return contents;
}

void showFloor(Stage& stage, std::size_t index, Contents& contents,
               const RenderVenueOptions& options) {
  MapView& mapView = stage.mapView();
  const std::shared_ptr<Map>& floor = contents.floors[index];
  if (mapView.currentMap() != floor) mapView.changeMap(floor);
  const CameraAngles angles{options.tilt, options.turn, options.zoom};
  lookAtFloor(mapView, angles);
  contents.markers->show(mapView, options.scale);
  if (RouteOnMap* const route = contents.route.get()) {
    const RouteVisit* const visit = contents.visits[index];
    lookAt(mapView, visit != nullptr ? route->pointsOf(*visit) : route->pointsOn(*floor), angles,
           aroundRoute(*mapView.venue));
    route->show(mapView, options.scale, visit);
  }
  replay(contents.touches, stage.root());
  if (contents.route && !contents.touches.empty()) contents.route->arrangeMarks(mapView);
  mapView.updateMarkerPositions();
  mapView.updateMarkerVisibility();
}

void warn(const FloorProgress& floor) {
  const std::string label = floorLabel(*floor.map);
  if (floor.state == FloorState::withoutModel)
    complain(fmt::format("warning: floor {} has no model", label));
  else if (!floor.problem.empty())
    complain(fmt::format("warning: floor {}: {}", label, floor.problem));
  if (!floor.remark.empty()) complain(fmt::format("floor {}: {}", label, floor.remark));
}

// Puts the attribution on the pictures. Says what to show beside them where that is not possible.
void attribute(Stage& stage, const Venue& venue, graphics::Size size,
               const RenderVenueOptions& options) {
  const Corner corner = parseCorner(options.attribution);
  const std::string text = attributionText(venue);
  if (text.empty()) return;
  bool isShown = false;
  if (!options.noAttribution) {
    const auto view = std::make_shared<AttributionView>(text, corner, size, options.scale);
    stage.mapView().addSubview(view);
    isShown = view->isWhole();
  }
  if (!isShown) complain("show this with the pictures: " + text);
}

// Takes the pictures and tells their files' names.
class PictureWriter {
 public:
  explicit PictureWriter(const RenderVenueOptions& options) : options_(options) {}

  void write(Stage& stage, const std::string& file) {
    if (options_.frames == 0) return writePicture(*stage.picture(), file);
    Animation animation(animationName(file), 1 / framesPerSecond);
    for (int i = 0; i < options_.frames; ++i) {
      const auto picture = stage.picture(i / framesPerSecond);
      writePicture(*picture, pictureName(file, fmt::format("{:04}", i + 1), true));
      animation.add(*picture);
    }
    animation.finish();
    tell(animationName(file));
  }

  /// The name for a floor's picture, which no other floor gets.
  std::string nameFor(const Map& floor, bool isOneOfMany) {
    const std::string label = floorLabel(floor);
    std::string name = pictureName(options_.output, label, isOneOfMany);
    for (int i = 2; !names_.insert(name).second; ++i)
      name = pictureName(options_.output, fmt::format("{}-{}", label, i), isOneOfMany);
    return name;
  }

  /// Ends the list. Whether there was anything to list.
  bool finish() {
    if (options_.json) writeOutput(jsonText(files_) + '\n');
    return !files_.empty();
  }

 private:
  void writePicture(const graphics::Image& image, const std::string& file) {
    if (const auto written = graphics::writePng(image, file); !written)
      throw CommandError(ExitCode::outputFailed,
                         fmt::format("{}: {}", file, written.error().description));
    tell(file);
  }

  void tell(const std::string& file) {
    files_.emplace_back(file);
    if (!options_.json) writeOutput(file + '\n');
  }

  const RenderVenueOptions& options_;
  boost::json::array files_;
  std::set<std::string> names_;
};

}  // namespace

ExitCode renderVenue(const RenderVenueOptions& options) {
  checkUse(options);
  const graphics::Size size = parseSize(options.size);
  std::vector<std::string_view> needed{"location", "map", "node", "polygon"};
  if (!options.route.empty()) needed.emplace_back("vortex");
  const auto venue =
      Session(options.connection).loadVenue(options.slug, options.accessible, needed);
  Contents contents = findContents(*venue, options);

  Stage stage(size, options.scale);
  attribute(stage, *venue, size, options);
  const auto floors = stage.load(venue, contents.floors);
  for (const Highlight& highlight : contents.highlights)
    for (const auto& polygon : highlight.location->polygons)
      stage.mapView().highlightPolygon(polygon, highlight.color);
  PictureWriter writer(options);
  bool failed = false;
  std::set<const Map*> warned;
  for (std::size_t i = 0; i < floors.size(); ++i) {
    const FloorProgress& floor = floors[i];
    if (warned.insert(floor.map.get()).second) warn(floor);
    failed = failed || floor.state == FloorState::failed;
    if (floor.state != FloorState::ready) continue;
    showFloor(stage, i, contents, options);
    writer.write(stage, writer.nameFor(*floor.map, floors.size() > 1));
  }
  const bool anything = writer.finish();
  if (failed) return ExitCode::noAnswer;
  return anything ? ExitCode::success : ExitCode::notFound;
}

}  // namespace orivanta::command
