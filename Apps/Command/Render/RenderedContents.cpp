#include "Apps/Command/Render/RenderedContents.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <fstream>
#include <utility>

#include "Apps/Command/Render/TouchRecording.hpp"
#include "Source/Directions.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

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

std::vector<std::shared_ptr<Map>> floorsOf(const Venue& venue, const RenderVenueOptions& options,
                                           const MapTheme* theme) {
  if (isFirstView(options, theme))
    if (auto floor = MapStyle::firstFloor(venue, theme->words)) return {std::move(floor)};
  return chooseFloors(venue, options.map);
}

// The floor that is shown first, then the others.
void stackFloors(const Venue& venue, const RenderVenueOptions& options, const MapTheme* theme,
                 RenderedContents& contents) {
  const bool hasRoute = !contents.path.empty() && options.map.empty();
  const auto shown =
      hasRoute ? contents.path.front()->map : floorsOf(venue, options, theme).front();
  contents.floors = {shown};
  for (const auto& map : *venue.maps)
    if (map != shown) contents.floors.push_back(map);
  contents.visits.resize(contents.floors.size());
}

}  // namespace

bool isFirstView(const RenderVenueOptions& options, const MapTheme* theme) {
  return theme != nullptr && options.map.empty() && !options.zoom && options.route.empty();
}

RenderedContents findContents(const Venue& venue, const RenderVenueOptions& options,
                              const MapTheme* theme) {
  RenderedContents contents;
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

}  // namespace orivanta::command
