// Routes between places, with or without steps, and their descriptions.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::viewer {

enum class StepKind { departure, ride, arrival };

struct RouteStep {
  StepKind kind;
  std::string text;
  std::string detail;          ///< the distance and the floor
  std::shared_ptr<Node> node;  ///< where the step takes place
};

struct PlannedRoute {
  NodeList path;  ///< at least one node
  std::shared_ptr<Location> from;
  std::shared_ptr<Location> to;
  std::string summary;                       ///< such as "160 m, about 3 min"
  std::vector<RouteStep> steps;              ///< empty from a place to itself
  std::vector<std::shared_ptr<Map>> floors;  ///< on which it has a length, without duplicates
};

/// For a venue that was loaded with its whole navigation graph. Keeps its records.
class RoutePlanner {
 public:
  explicit RoutePlanner(std::shared_ptr<Venue> venue);

  /// Returns the cheapest route between any nodes of the two places, or nothing if there is none.
  std::optional<PlannedRoute> plan(const std::shared_ptr<Location>& from,
                                   const std::shared_ptr<Location>& to, bool accessible);

 private:
  const NavigationGraph& graph(bool accessible);
  std::string distanceText(double length) const;
  void describe(PlannedRoute& route, const NavigationGraph& graph) const;

  std::shared_ptr<Venue> venue_;
  double unitsPerMeter_;                               // 0 if unknown
  std::shared_ptr<const NavigationGraph> accessible_;  // null until it is first used
};

}  // namespace orivanta::viewer
