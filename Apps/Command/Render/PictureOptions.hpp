// What the options of `render` say, checked and made into values.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Command/Render/AttributionView.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::command {

// All of these throw `CommandError`: `wrongUse` for what makes no sense, `notFound` for what the
// venue does not have.

/// "WIDTHxHEIGHT" in whole points.
graphics::Size parseSize(std::string_view text);

/// The floors that the text names: "all", an index, an identifier, a short name or a name; the
/// first floor for an empty text.
std::vector<std::shared_ptr<Map>> chooseFloors(const Venue& venue, const std::string& text);

/// The one location that the text names as in `findRouteEnd`.
std::shared_ptr<Location> findLocation(const Venue& venue, const std::string& text);

/// "lower-left", "lower-right", "upper-left" or "upper-right".
Corner parseCorner(std::string_view text);

struct Highlight {
  std::shared_ptr<Location> location;
  graphics::Color color;
};

/// "PLACE=COLOUR", or "PLACE" alone for red.
Highlight parseHighlight(const Venue& venue, const std::string& text);

/// The name itself for a single picture; for one of several FILE-LABEL.png, with what is no part of
/// a file name replaced in the label.
std::string pictureName(const std::string& output, std::string_view label, bool isOneOfMany);

/// The name with the ending ".gif" in the place of its own.
std::string animationName(const std::string& output);

}  // namespace orivanta::command
