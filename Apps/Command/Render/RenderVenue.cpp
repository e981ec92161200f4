#include "Apps/Command/Render/RenderVenue.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <numbers>

#include "Apps/Command/Json.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/Places.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Command/Render/Stage.hpp"
#include "Apps/Command/Session.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr double largestTilt = 60;  // degrees; as far as the map view's own gesture goes

float radians(double degrees) { return static_cast<float>(degrees * std::numbers::pi / 180); }

void checkUse(const RenderVenueOptions& options) {
  if (!(options.scale > 0 && options.scale <= 8))
    throw CommandError(ExitCode::wrongUse, "--scale: give a number above 0, up to 8");
  if (!(options.tilt >= 0 && options.tilt <= largestTilt))
    throw CommandError(ExitCode::wrongUse, "--tilt: give degrees from 0 to 60");
  if (!(options.zoom > 0 && options.zoom <= 1000))
    throw CommandError(ExitCode::wrongUse, "--zoom: give a number above 0, up to 1000");
}

void placeCamera(MapView& mapView, const RenderVenueOptions& options) {
  if (!mapView.cameraOrbit) return;
  mapView.cameraOrbit->setEulerAngle(scene::Axis::x, radians(options.tilt));
  mapView.cameraOrbit->setEulerAngle(scene::Axis::z, radians(options.turn));
  mapView.cameraOrbit->children().front()->setPosition(
      scene::Axis::z, *mapView.cameraDistance / static_cast<float>(options.zoom));
}

void highlightLocations(MapView& mapView, const std::vector<Highlight>& highlights) {
  for (const Highlight& highlight : highlights)
    for (const auto& polygon : highlight.location->polygons)
      mapView.highlightPolygon(polygon, highlight.color);
}

void write(const graphics::Image& image, const std::string& file) {
  if (const auto error = graphics::writePng(image, file))
    throw CommandError(ExitCode::outputFailed, fmt::format("{}: {}", file, error->description));
}

}  // namespace

ExitCode renderVenue(const RenderVenueOptions& options) {
  checkUse(options);
  const graphics::Size size = parseSize(options.size);
  const auto venue = Session(options.connection)
                         .loadVenue(options.slug, false, {"location", "map", "node", "polygon"});
  const auto floors = chooseFloors(*venue, options.map);
  std::vector<Highlight> highlights;
  for (const std::string& text : options.highlights)
    highlights.push_back(parseHighlight(*venue, text));

  Stage stage(size, options.scale);
  stage.load(venue);
  highlightLocations(stage.mapView(), highlights);
  boost::json::array written;
  for (const auto& floor : floors) {
    if (!floor->mapObject) {
      complain(fmt::format("warning: floor {} has no model", floorLabel(*floor)));
      continue;
    }
    if (stage.mapView().currentMap() != floor) stage.mapView().changeMap(floor);
    placeCamera(stage.mapView(), options);
    const std::string file = pictureName(options.output, floorLabel(*floor), floors.size() > 1);
    write(*stage.picture(), file);
    if (!options.json) writeOutput(file + '\n');
    written.emplace_back(file);
  }
  if (options.json) writeOutput(jsonText(written) + '\n');
  return written.empty() ? ExitCode::notFound : ExitCode::success;
}

}  // namespace orivanta::command
