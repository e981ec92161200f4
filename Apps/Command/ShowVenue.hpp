// The subcommand `venue`: what is in one venue.
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
  bool accessible = false;               ///< only connectors that are accessible
  std::optional<std::string> locations;  ///< the locations with this text instead of the summary
};

ExitCode showVenue(const ShowVenueOptions& options);

}  // namespace orivanta::command
