// Routes between places, with and without steps, and what to say about them.
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
  std::string detail;          ///< how far, and on which floor
  std::shared_ptr<Node> node;  ///< where it happens
};

struct PlannedRoute {
  NodeList path;  ///< at least one node
  std::shared_ptr<Location> from;
  std::shared_ptr<Location> to;
  std::string summary;                       ///< such as "160 m, about 3 min"
  std::vector<RouteStep> steps;              ///< none from a place to itself
  std::vector<std::shared_ptr<Map>> floors;  ///< on which it goes somewhere, each once
};

/// For a venue that was loaded with the whole of its network. Keeps its records.
class RoutePlanner {
 public:
  explicit RoutePlanner(std::shared_ptr<Venue> venue);

  /// The cheapest route between any of the nodes of the two places; nothing when there is none.
  std::optional<PlannedRoute> plan(const std::shared_ptr<Location>& from,
                                   const std::shared_ptr<Location>& to, bool accessible);

 private:
  const NavigationGraph& graph(bool accessible);
  std::string distanceText(double length) const;
  void describe(PlannedRoute& route, const NavigationGraph& graph) const;

  std::shared_ptr<Venue> venue_;
  double unitsPerMetre_;                               // 0 when the venue does not tell
  std::shared_ptr<const NavigationGraph> accessible_;  // null until it is needed
};

}  // namespace orivanta::viewer
