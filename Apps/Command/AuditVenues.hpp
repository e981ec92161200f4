// The subcommand `audit`: checks venue packages for places that some visitors cannot reach.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"

namespace orivanta::command {

struct AuditOptions {
  std::vector<std::filesystem::path> folders;
  std::optional<std::string> picture;  ///< a PNG file: each floor with the cut-off places colored
};

/// Prints one line of JSON for each package, in order. Returns `notFound` if a place cannot be
/// reached at all. Throws `CommandError` if a package cannot be read.
ExitCode auditVenues(const AuditOptions& options);

}  // namespace orivanta::command
