// The subcommand `costs`: the costs of the routes between many places.
#pragma once

#include <string>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/GuideRoute.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct CostsOptions {
  ConnectionOptions connection;
  bool json = false;
  std::string slug;
  std::string placesFile;  ///< a place per line; "-" for standard input
  GuideOptions guidance;   ///< `profile`, and of `query` the closures and the speed
};

ExitCode listCosts(const CostsOptions& options);

}  // namespace orivanta::command
