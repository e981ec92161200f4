// The subcommand `view`: a window to walk around a venue in.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::viewer {

struct ViewVenueOptions {
  command::ConnectionOptions connection;
  std::string slug;                                ///< empty for a list of venues
  std::string size = "1280x800";                   ///< points
  double scale = 0;                                ///< pixels per point; 0 for the screen's own
  bool times = false;                              ///< says what took how long
  std::optional<std::filesystem::path> demoVenue;  ///< shown when no endpoint is set
};

/// Until the window is closed. Throws `CommandError`.
command::ExitCode viewVenue(const ViewVenueOptions& options);

}  // namespace orivanta::viewer
