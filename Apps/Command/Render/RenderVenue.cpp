#include "Apps/Command/Render/RenderVenue.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <boost/json/array.hpp>
#include <cmath>
#include <fstream>
#include <memory>
#include <numbers>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Places.hpp"
#include "Apps/Command/Render/Animation.hpp"
#include "Apps/Command/Render/AttributionView.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Command/Render/PlacePins.hpp"
#include "Apps/Command/Render/Stage.hpp"
#include "Apps/Command/Render/TouchRecording.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Text/Json.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/Attribution.hpp"
#include "Source/Directions.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/LabelLayer.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/OfflineDownloader.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr double largestTilt = 60;  // degrees; the limit of the map view's gesture
constexpr double framesPerSecond = 12.5;

void checkUse(const RenderVenueOptions& options) {
  const auto check = [](bool fits, const char* text) {
    if (!fits) throw CommandError(ExitCode::wrongUse, text);
  };
  check(options.scale > 0 && options.scale <= 8, "--scale must be greater than 0 and at most 8");
  check(options.tilt >= 0 && options.tilt < largestTilt,
        "--tilt must be at least 0 and less than 60");
  check(std::isfinite(options.turn), "--turn must be finite");
  check(options.zoom.value_or(1) >= 0.01 && options.zoom.value_or(1) <= 100,
        "--zoom must be from 0.01 to 100");
  parseCorner(options.attribution);
  check(!options.stacked || options.style != "plain",
        "--stacked requires a --style, such as light");
  check(!options.stacked || options.map != "all", "--stacked shows all floors; --map names one");
  check(options.frames >= 0 && options.frames <= 9999, "--frames must be from 0 to 9999");
}

// What the images show. All of it is looked up before anything is drawn.
struct Contents {
  std::vector<std::shared_ptr<Map>> floors;       // of the images; a floor may occur several times
  std::vector<std::optional<FloorVisit>> visits;  // the visit that each image shows, if only one
  std::vector<Highlight> highlights;
  NodeList path;  // of the route; empty if there is none
  RouteEnd from = NodeList();
  RouteEnd to = NodeList();
  std::vector<std::shared_ptr<Location>> pinned;
  std::vector<view::Touch> touches;
};

// What is shown over the map.
struct Overlays {
  Overlays(const std::shared_ptr<MapView>& mapView, const Contents& contents,
           const RenderVenueOptions& options)
      : pins(contents.pinned) {
    if (!contents.path.empty())
      route = std::make_unique<RouteOverlay>(mapView, contents.path, contents.from.location,
                                             contents.to.location);
    if (!options.labels || mapView->style()) return;
    labels = std::make_unique<LabelLayer>(mapView, options.scale);
    auto marked = contents.pinned;
    for (const RouteEnd* end : {&contents.from, &contents.to})
      if (end->location) marked.push_back(end->location);
    labels->setMarked(std::move(marked));
  }

  PlacePins pins;
  std::unique_ptr<RouteOverlay> route;  // null if there is none
  std::unique_ptr<LabelLayer> labels;   // null if no names are shown
};

NodeList findPath(const Venue& venue, const RouteEnd& from, const RouteEnd& to,
                  const RenderVenueOptions& options) {
  const auto directions = getDirections(venue, from, to);
  if (!directions)
    throw CommandError(ExitCode::notFound,
                       fmt::format("no {}route from {}", options.accessible ? "accessible " : "",
                                   fmt::join(options.route, " to ")));
  return directions->path;
}

std::vector<view::Touch> touchesIn(const std::string& name) {
  std::ifstream file(name);
  if (!file)
    throw CommandError(ExitCode::wrongUse, fmt::format("--touches: cannot read \"{}\"", name));
  return readTouches(file, name);
}

// Whether the image shows where the places are, not a whole floor or a route.
bool isFirstView(const RenderVenueOptions& options, const MapTheme* theme) {
  return theme != nullptr && options.map.empty() && !options.zoom && options.route.empty();
}

std::vector<std::shared_ptr<Map>> floorsOf(const Venue& venue, const RenderVenueOptions& options,
                                           const MapTheme* theme) {
  if (isFirstView(options, theme))
    if (auto floor = MapStyle::firstFloor(venue, theme->words)) return {std::move(floor)};
  return chooseFloors(venue, options.map);
}

// The floor that is shown first, then the others.
void stackFloors(const Venue& venue, const RenderVenueOptions& options, const MapTheme* theme,
                 Contents& contents) {
  const bool hasRoute = !contents.path.empty() && options.map.empty();
  const auto shown =
      hasRoute ? contents.path.front()->map : floorsOf(venue, options, theme).front();
  contents.floors = {shown};
  for (const auto& map : *venue.maps)
    if (map != shown) contents.floors.push_back(map);
  contents.visits.resize(contents.floors.size());
}

Contents findContents(const Venue& venue, const RenderVenueOptions& options,
                      const MapTheme* theme) {
  Contents contents;
  for (const std::string& text : options.markers)
    contents.pinned.push_back(findLocation(venue, text));
  for (const std::string& text : options.highlights)
    contents.highlights.push_back(parseHighlight(venue, text));
  if (!options.route.empty()) {
    contents.from = findRouteEnd(venue, {options.route[0]});
    contents.to = findRouteEnd(venue, {options.route[1]});
    contents.path = findPath(venue, contents.from, contents.to, options);
  }
  if (options.stacked) {
    stackFloors(venue, options, theme, contents);
  } else if (!contents.path.empty() && options.map.empty()) {
    for (const FloorVisit& visit : floorVisits(contents.path)) {
      contents.floors.push_back(visit.floor);
      contents.visits.emplace_back(visit);
    }
  } else {
    contents.floors = floorsOf(venue, options, theme);
    contents.visits.resize(contents.floors.size());
  }
  if (options.touchesFile) contents.touches = touchesIn(*options.touchesFile);
  return contents;
}

// Frames the points, or the whole floor if there are none.
void placeCamera(const MapView& mapView, const std::vector<graphics::Vector3>& points,
                 const RenderVenueOptions& options) {
  const auto radians = [](double degrees) { return degrees * std::numbers::pi / 180; };
  const double tilt = radians(options.tilt);
  const double turn = radians(options.turn);
  MapCamera& camera = mapView.camera();
  camera.setLimited(false);
  camera.setPose(points.empty() ? camera.fittingPose(tilt, turn)
                                : camera.framingPose(points, aroundRoute(mapView), tilt, turn));
  const graphics::Size size = camera.lens().size;
  if (options.zoom) camera.zoomBy(*options.zoom, {size.width / 2, size.height / 2});
  const MapTheme* const theme = mapView.style() ? mapView.style()->theme().get() : nullptr;
  if (isFirstView(options, theme)) mapView.style()->showFirstView();
}

void stack(const MapView& mapView, const RenderVenueOptions& options) {
  mapView.style()->setStacked(true);
  MapCamera& camera = mapView.camera();
  const graphics::Size size = camera.lens().size;
  if (options.zoom) camera.zoomBy(*options.zoom, {size.width / 2, size.height / 2});
}

void showFloor(const Stage& stage, std::size_t index, const Contents& contents, Overlays& overlays,
               const RenderVenueOptions& options) {
  MapView& mapView = *stage.mapView();
  const std::shared_ptr<Map>& floor = contents.floors[index];
  if (mapView.currentMap() != floor) mapView.changeMap(floor);
  const FloorVisit* const visit = contents.visits[index] ? &*contents.visits[index] : nullptr;
  RouteOverlay* const route = overlays.route.get();
  std::vector<graphics::Vector3> points;
  if (route != nullptr)
    points = visit != nullptr ? route->pointsOf(*visit) : route->pointsOn(*floor);
  placeCamera(mapView, points, options);
  overlays.pins.show(mapView, options.scale);
  if (route != nullptr) route->show(options.scale, visit);
  replay(contents.touches, stage.mapView());
  if (route != nullptr) route->arrange();
  while (overlays.labels && overlays.labels->arrange()) {
  }
  if (options.stacked) stack(mapView, options);
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

// Keeps routes in styled images clear of a view at an edge.
void keepRoutesClear(MapView& mapView, const graphics::Rect& frame) {
  const double height = mapView.bounds().size.height;
  const bool isAbove = frame.midY() < height / 2;
  Insets insets;
  (isAbove ? insets.top : insets.bottom) = isAbove ? frame.maxY() : height - frame.minY();
  mapView.camera().setInsets(insets);
}

// Puts the attribution on the images. If that is not possible, writes it to standard error.
void attribute(Stage& stage, const Venue& venue, graphics::Size size,
               const RenderVenueOptions& options, const MapTheme* theme) {
  const Corner corner = parseCorner(options.attribution);
  const std::string text = attributionText(venue);
  if (text.empty()) return;
  bool isShown = false;
  if (!options.noAttribution) {
    const auto view = std::make_shared<AttributionView>(text, corner, size, options.scale, theme);
    stage.mapView()->addSubview(view);
    isShown = view->isWhole();
    if (theme != nullptr && !options.route.empty())
      keepRoutesClear(*stage.mapView(), view->frame());
  }
  if (!isShown) complain("show this attribution with the images: " + text);
}

// Writes the images and reports their file names.
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

  /// Returns a file name for the image of a floor. Each call returns a different name.
  std::string nameFor(const Map& floor, bool isOneOfMany) {
    const std::string label = floorLabel(floor);
    std::string name = pictureName(options_.output, label, isOneOfMany);
    for (int i = 2; !names_.insert(name).second; ++i)
      name = pictureName(options_.output, fmt::format("{}-{}", label, i), isOneOfMany);
    return name;
  }

  /// Ends the list of files. Returns false if it is empty.
  bool finish() {
    if (options_.json) writeOutput(text::jsonText(files_) + '\n');
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
    if (options_.printsFiles && !options_.json) writeOutput(file + '\n');
  }

  const RenderVenueOptions& options_;
  boost::json::array files_;
  std::set<std::string> names_;
};

}  // namespace

ExitCode renderVenue(const RenderVenueOptions& options) {
  checkUse(options);
  const graphics::Size size = parseSize(options.size);
  const auto theme = readTheme(options.style);
  std::vector<std::string_view> needed{"location", "map", "node", "polygon"};
  if (!options.route.empty()) needed.emplace_back("vortex");
  const auto venue =
      Session(options.connection).loadVenue(options.slug, options.accessible, needed);
  const Contents contents = findContents(*venue, options, theme.get());

  Stage stage(size, options.scale);
  if (theme) {
    const auto style = MapStyle::make(theme);
    style->setStill(true);  // the camera does not move
    style->setLabels(!options.noLabels);
    stage.mapView()->setStyle(style);
  }
  if (options.connection.offline)
    stage.mapView()->downloader = std::make_shared<OfflineDownloader>();
  attribute(stage, *venue, size, options, theme.get());
  if (!options.legend.empty())
    stage.mapView()->addSubview(
        std::make_shared<LegendView>(options.legend, options.scale, theme.get()));
  const auto floors = stage.load(venue, contents.floors);
  for (const Highlight& highlight : contents.highlights)
    for (const auto& polygon : highlight.location->polygons)
      stage.mapView()->highlightPolygon(polygon, highlight.color);
  Overlays overlays(stage.mapView(), contents, options);
  PictureWriter writer(options);
  bool failed = false;
  bool isWritten = false;
  std::set<const Map*> warned;
  for (std::size_t i = 0; i < floors.size(); ++i) {
    const FloorProgress& floor = floors[i];
    if (warned.insert(floor.map.get()).second) warn(floor);
    failed = failed || floor.state == FloorState::failed;
    if (floor.state != FloorState::ready || (options.stacked && isWritten)) continue;
    isWritten = true;
    showFloor(stage, i, contents, overlays, options);
    writer.write(stage, writer.nameFor(*floor.map, floors.size() > 1 && !options.stacked));
  }
  const bool anything = writer.finish();
  if (failed) return ExitCode::noAnswer;
  return anything ? ExitCode::success : ExitCode::notFound;
}

}  // namespace orivanta::command
