// The nearest toilet, exit or other facility, or the nearest place of a category, as a destination.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::viewer {

/// A destination that is the nearest of several places.
struct NearestChoice {
  std::string title;                  ///< such as "Nearest toilet"
  guidance::Stop stop;                ///< several places or a category
  std::string label{};                ///< such as "Toilet"
  PlaceKind kind = PlaceKind::other;  ///< for the icon
};

/// Returns the nearest place of a category as a destination. It is not an emergency exit unless the
/// category is one of emergency exits.
NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts);

/// Returns the choices: toilets, exits, elevators, cash machines, information and first aid. What
/// the venue does not have is omitted, and so are elevators, cash machines and the like if all are
/// closed. Entrances replace exits if there are none. If `from` is not null, it is a place of the
/// venue where the routes begin, and its own kind is omitted. The venue must be loaded.
std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location* from,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer
