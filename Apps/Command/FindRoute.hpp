// The subcommand `route`: finds the route from one place to another, or a batch of routes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/GuideRoute.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct FindRouteOptions {
  ConnectionOptions connection;
  bool json = false;
  std::string slug;
  bool accessible = false;  ///< excludes connectors that are not accessible
  std::vector<std::string> from;
  std::vector<std::string> to;
  GuideOptions guidance;
  std::optional<std::string> batchFile;  ///< replaces `from` and `to`; "-" for standard input
};

ExitCode findRoute(const FindRouteOptions& options);

}  // namespace orivanta::command
