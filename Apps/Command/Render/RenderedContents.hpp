// What the images of the subcommand `render` show.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Apps/Command/Places.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Command/Render/RenderVenue.hpp"
#include "Platform/View/Touch.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::command {

/// What the images show. All of it is looked up before anything is drawn.
struct RenderedContents {
  std::vector<std::shared_ptr<Map>> floors;  ///< of the images; a floor may occur several times
  std::vector<std::optional<FloorVisit>> visits;  ///< the visit that each image shows, if only one
  std::vector<Highlight> highlights;
  NodeList path;  ///< of the route; empty if there is none
  RouteEnd from = NodeList();
  RouteEnd to = NodeList();
  std::vector<std::shared_ptr<Location>> pinned;
  std::vector<view::Touch> touches;
};

/// Returns whether the image shows where the places are, not a whole floor or a route. `theme` is
/// null for plain images.
bool isFirstView(const RenderVenueOptions& options, const MapTheme* theme);

/// Finds what the options name. Throws a `CommandError` if there is no such place or route.
RenderedContents findContents(const Venue& venue, const RenderVenueOptions& options,
                              const MapTheme* theme);

}  // namespace orivanta::command
