// Checks the options of `render` and converts them to values.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Command/Render/AttributionView.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::command {

// All functions throw `CommandError`: `wrongUse` for invalid values, and `notFound` for places and
// floors that the venue does not have.

/// Parses "WIDTHxHEIGHT", in whole points.
graphics::Size parseSize(std::string_view text);

/// Returns the floors that the text selects: "all", an index, an identifier, a short name or a
/// name. An empty text selects the first floor.
std::vector<std::shared_ptr<Map>> chooseFloors(const Venue& venue, const std::string& text);

/// Returns the one location that the text names; see `findRouteEnd`.
std::shared_ptr<Location> findLocation(const Venue& venue, const std::string& text);

/// Parses "lower-left", "lower-right", "upper-left" or "upper-right".
Corner parseCorner(std::string_view text);

/// Returns the theme that the text names: "light" or "dark", "light-contrast" or "dark-contrast"
/// for high contrast, or a file, with a warning for each of its members that is unknown. Returns
/// null for "plain".
std::shared_ptr<const MapTheme> readTheme(const std::string& text);

struct Highlight {
  std::shared_ptr<Location> location;
  graphics::Color color;
};

/// Parses "PLACE=COLOR", or "PLACE" for red.
Highlight parseHighlight(const Venue& venue, const std::string& text);

/// Returns `output` for a single image. For one of several images, returns FILE-LABEL.png and
/// replaces characters of the label that file names cannot contain.
std::string pictureName(const std::string& output, std::string_view label, bool isOneOfMany);

/// Returns the name with its extension replaced by ".gif".
std::string animationName(const std::string& output);

}  // namespace orivanta::command
