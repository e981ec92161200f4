#include "Apps/Command/Render/RenderVenue.hpp"

#include <fmt/format.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Render/AttributionView.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Command/Render/PictureWriter.hpp"
#include "Apps/Command/Render/PlacePins.hpp"
#include "Apps/Command/Render/RenderedContents.hpp"
#include "Apps/Command/Render/Stage.hpp"
#include "Apps/Command/Render/TouchRecording.hpp"
#include "Apps/Command/Session.hpp"
#include "Source/Attribution.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/LabelLayer.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/OfflineDownloader.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr double largestTilt = 60;  // degrees; the limit of the map view's gesture

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

// What is shown over the map.
struct Overlays {
  Overlays(const std::shared_ptr<MapView>& mapView, const RenderedContents& contents,
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

void showFloor(const Stage& stage, std::size_t index, const RenderedContents& contents,
               Overlays& overlays, const RenderVenueOptions& options) {
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

}  // namespace

ExitCode renderVenue(const RenderVenueOptions& options) {
  checkUse(options);
  const graphics::Size size = parseSize(options.size);
  const auto theme = readTheme(options.style);
  std::vector<std::string_view> needed{"location", "map", "node", "polygon"};
  if (!options.route.empty()) needed.emplace_back("vortex");
  const auto venue =
      Session(options.connection).loadVenue(options.slug, options.accessible, needed);
  const RenderedContents contents = findContents(*venue, options, theme.get());

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
