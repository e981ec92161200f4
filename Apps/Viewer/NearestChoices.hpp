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

/// A destination that is the nearest of several.
struct NearestChoice {
  std::string title;                   ///< such as "Nearest toilet"
  std::shared_ptr<Category> category;  ///< of the places; null for the elevators of the venue
};

/// Returns the nearest place of a category as a destination.
NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts);

/// Returns the stop for a choice: a category, or the nodes of all elevators that are not closed.
/// The list of nodes is empty if all are. The venue must be loaded.
guidance::Stop stopFor(const NearestChoice& choice, const Venue& venue,
                       const guidance::Closures& closures);

/// Returns the choices for a place: a toilet and an exit, unless the place is one, and an elevator.
/// Omits what the venue does not have or what is closed. The venue must be loaded.
std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location& place,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer
