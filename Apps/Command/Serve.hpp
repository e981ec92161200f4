// The subcommand `serve`: a venue server until somebody ends it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orivanta::command {

struct ServeOptions {
  std::vector<std::filesystem::path> folders;  ///< venue packages, or folders of them
  std::filesystem::path demoVenue;             ///< served when no folders are given
  std::string address = "127.0.0.1";
  std::uint16_t port = 8080;  ///< 0 for a free one
  /// Both or neither: required of every client when set.
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::size_t pageSize = 100;
  std::optional<std::string> origin;  ///< of all URLs in answers, such as "https://maps.example"
  std::vector<std::string> trustedProxies;  ///< IP addresses
};

/// Prints the API root as one line on standard output once clients can come, serves until SIGINT or
/// SIGTERM arrives, and returns the exit code: 0, or 2 after a line on standard error when the
/// server could not start.
int serve(const ServeOptions& options);

}  // namespace orivanta::command
