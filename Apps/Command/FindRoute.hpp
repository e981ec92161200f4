// The subcommand `route`: the way from one place to another, or many of them in a batch.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct FindRouteOptions {
  ConnectionOptions connection;
  bool json = false;
  std::string slug;
  bool accessible = false;  ///< without the connectors that are not accessible
  std::vector<std::string> from;
  std::vector<std::string> to;
  std::optional<std::string> batchFile;  ///< instead of the two; "-" for standard input
};

ExitCode findRoute(const FindRouteOptions& options);

}  // namespace orivanta::command
