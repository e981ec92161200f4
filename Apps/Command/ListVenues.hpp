// The subcommand `venues`: lists the venues.
#pragma once

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct ListVenuesOptions {
  ConnectionOptions connection;
  bool json = false;
};

ExitCode listVenues(const ListVenuesOptions& options);

}  // namespace orivanta::command
