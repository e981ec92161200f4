// The subcommand `walk`: simulates a visitor who follows the instructions of a route.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/GuideRoute.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct WalkOptions {
  ConnectionOptions connection;
  bool json = false;  ///< print every position instead of the instructions
  std::string slug;
  std::vector<std::string> from;
  std::vector<std::string> to;
  GuideOptions guidance;
  double speedUp = 1.0;            ///< simulated seconds in a second; positive
  bool instant = false;            ///< do not wait at all
  std::optional<double> offRoute;  ///< when the visitor leaves the route, in simulated seconds
};

ExitCode walkRoute(const WalkOptions& options);

}  // namespace orivanta::command
