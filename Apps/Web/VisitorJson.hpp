// What lists and cards say to visitors, as JSON.
#pragma once

#include <boost/json/value.hpp>
#include <string_view>

#include "Apps/Web/LoadedVenue.hpp"

namespace orivanta::web {

/// Answers a JSON object. `what` is "catalog" (all places by kind), "card" (what the card of
/// `place` says), "icons" (see `iconsJson`; `theme` is "dark" or "light"), "nearest" (the nearest
/// places to offer at `place`, which may be missing), or "typed" (the nearest places of the
/// categories that `text` means). `language` is that of the texts, `closed` an array of
/// identifiers, and `now` the local time at the venue, such as "2026-11-21T18:30".
///
/// Returns null if there is no such place. Throws `std::exception` if the object is malformed.
boost::json::value visitorJson(LoadedVenue& venue, std::string_view request);

}  // namespace orivanta::web
