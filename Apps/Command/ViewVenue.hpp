// The subcommand `view`: shows a venue in a window.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct ViewVenueOptions {
  ConnectionOptions connection;
  std::string slug;                                ///< empty for a list of all venues
  std::string size = "1280x800";                   ///< points
  double scale = 0;                                ///< pixels per point; 0 for the screen's own
  bool times = false;                              ///< reports how long each part took
  std::optional<std::filesystem::path> demoVenue;  ///< shown when no endpoint is set
};

/// Returns when the window is closed. Throws `CommandError`.
ExitCode viewVenue(const ViewVenueOptions& options);

}  // namespace orivanta::command
