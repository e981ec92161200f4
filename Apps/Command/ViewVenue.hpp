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
  std::string slug;                                ///< if empty, all venues are listed
  std::string size = "1280x800";                   ///< points
  double scale = 0;                                ///< pixels per point; 0 for the display's scale
  int textSize = 100;                              ///< percent of the usual size, up to 200
  bool highContrast = false;                       ///< of the interface
  bool reducedMotion = false;                      ///< jumps instead of moving
  std::string style = "light";                     ///< light, dark, plain or the file of a theme
  bool times = false;                              ///< reports how long each step took
  bool walk = false;                               ///< walks along each planned route
  std::optional<std::string> language;             ///< of the interface and of names
  std::optional<std::filesystem::path> demoVenue;  ///< shown if no endpoint is set
};

/// Returns when the window is closed. Throws `CommandError`.
ExitCode viewVenue(const ViewVenueOptions& options);

}  // namespace orivanta::command
