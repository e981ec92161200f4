// The answer to a request: itineraries, or the reason why there is none.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Source/Guidance/Itinerary.hpp"

namespace orivanta::guidance {

/// Why no route was found.
struct Problem {
  /// The kinds of problems.
  enum class Kind {
    tooFewStops,         ///< the request has fewer than two stops
    tooManyStops,        ///< the request has more stops than `Request` allows
    unknownPlace,        ///< a stop is null or does not belong to the venue
    noNodes,             ///< a stop has no nodes in the walking network
    unreachable,         ///< there is no way, whatever the profile and the closures
    onlyWithSteps,       ///< there is a way, but the profile excludes it
    closed,              ///< the place, or every way to it, is closed
    closesBeforeArrival  ///< the place closes before the traveler arrives
  };

  Kind kind = Kind::unreachable;  ///< the kind of problem
  std::size_t stop = 0;           ///< the index of the stop concerned
};

/// The answer to a request. Exactly one of the two members has a content.
struct Plan {
  std::vector<Itinerary> itineraries;  ///< the best first; then the alternatives, by cost
  std::optional<Problem> problem;      ///< why there is no itinerary
};

}  // namespace orivanta::guidance
