// The nearest toilet, exit or elevator, or the nearest place of a category, as a destination.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::viewer {

/// A destination that is the nearest of several places.
struct NearestChoice {
  std::string title;    ///< such as "Nearest toilet"
  guidance::Stop stop;  ///< several places or a category
};

/// Returns the nearest place of a category as a destination. It is not an emergency exit unless the
/// category is one of emergency exits.
NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts);

/// Returns the choices for a place: toilets and exits, unless the place is one of them, and the
/// elevators. What the venue does not have is omitted, and so are the elevators if all are closed.
/// Entrances replace exits if there are none. The venue must be loaded.
std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location& place,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer
