// A route that the viewer shows, with its instructions as texts.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Source/Guidance/Guide.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::viewer {

/// An itinerary and what is shown of it.
struct GuidedRoute {
  guidance::Itinerary itinerary;
  std::vector<guidance::Step> steps;
  std::vector<std::string> texts;            ///< one for each step
  std::string summary;                       ///< such as "160 m, 3 min"
  std::string title;                         ///< the summary and, if necessary, what is special
  std::string warning;                       ///< which stops are closed at the arrival; or empty
  NodeList path;                             ///< at least one node
  std::vector<std::shared_ptr<Map>> floors;  ///< on which it has a length, without duplicates

  /// Returns the place of departure; null for a node or a position.
  std::shared_ptr<Location> from() const { return itinerary.visits.front().location; }

  /// Returns the place or the connector of arrival; null for a node or a position.
  std::shared_ptr<Location> to() const { return itinerary.visits.back().location; }
};

/// The answer to a request: routes, or a reason why there is none.
struct GuidedPlan {
  std::vector<GuidedRoute> routes;               ///< the best first; empty if there is a problem
  std::optional<guidance::Problem> problem;      ///< why there is no route
  std::string problemText;                       ///< a sentence; empty if there are routes
  std::shared_ptr<const guidance::Guide> guide;  ///< that made the plan; null without a network
};

}  // namespace orivanta::viewer
