// What the page reads of a venue, as JSON.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <string_view>

#include "Apps/Web/LoadedVenue.hpp"

namespace orivanta::web {

/// Returns a venue of a list: `id`, `slug` and `name`.
boost::json::object venueJson(const Venue& venue);

/// Returns the records of a venue. Floors and nodes are named by their indices, categories by
/// identifiers.
///
/// - `floors`: `id`, `name`, `shortName`, `elevation` (in the venue's units)
/// - `places` and `connectors`: `id`, `name`, `type`, `description` (null if there is none),
///   `categories`, `floors`, `nodes`; of connectors also `accessible`
/// - `categories`: `id`, `name`
/// - `nodes`: the identifiers
/// - `unitsPerMeter`, `attribution`
boost::json::object recordsJson(const LoadedVenue& venue);

/// Returns the places and connectors that match a text, the best first: `id`, `name`, `category`,
/// `kind`, `match` and `floors` (the lowest first).
boost::json::array foundJson(LoadedVenue& venue, std::string_view text);

}  // namespace orivanta::web
