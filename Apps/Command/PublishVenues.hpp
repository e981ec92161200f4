// The subcommand `publish`: writes venues as static files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"

namespace orivanta::command {

struct PublishOptions {
  std::vector<std::filesystem::path> packages;  ///< venue packages, or folders of them
  std::filesystem::path output;
  std::string baseUrl;                      ///< of the output
  bool force = false;                       ///< publish packages with violations
  std::vector<std::string> allowedOrigins;  ///< of web pages, for nginx; or "*"
};

/// Prints the API roots of all venues and languages. Throws `CommandError` if a package cannot be
/// published.
ExitCode publishVenues(const PublishOptions& options);

}  // namespace orivanta::command
