// The subcommand `venue`: describes one venue.
#pragma once

#include <optional>
#include <string>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct ShowVenueOptions {
  ConnectionOptions connection;
  bool json = false;
  std::string slug;
  bool accessible = false;               ///< excludes connectors that are not accessible
  std::optional<std::string> locations;  ///< lists the locations that match this text instead
};

ExitCode showVenue(const ShowVenueOptions& options);

}  // namespace orivanta::command
