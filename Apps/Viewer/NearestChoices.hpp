// The nearest toilet, exit or elevator, or the nearest place of a category, as a destination.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::viewer {

/// A destination that is the nearest of several.
struct NearestChoice {
  std::string title;    ///< such as "Nearest toilet"
  guidance::Stop stop;  ///< a category or nodes
};

/// Returns the nearest place of a category as a destination.
NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts);

/// Returns the choices that a venue has, except those that a place itself belongs to: a toilet, an
/// exit and an elevator that is not closed. The venue must be loaded.
std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location& place,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer
