// The subcommand `search`: finds places as the search field of the viewer does.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct SearchPlacesOptions {
  ConnectionOptions connection;
  bool json = false;
  std::string slug;
  std::vector<std::string> words;  ///< what a user types; joined with spaces
  std::size_t most = 0;            ///< the number of places to print; 0 prints all
};

ExitCode searchPlaces(const SearchPlacesOptions& options);

}  // namespace orivanta::command
