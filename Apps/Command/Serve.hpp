// The subcommand `serve`: runs a venue server until a signal ends it.
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
  std::filesystem::path demoVenue;             ///< served if no folders are given
  std::string address = "127.0.0.1";
  std::uint16_t port = 8080;  ///< 0 for any free port
  /// Both or neither. If set, every client must send them, except for the web page.
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::size_t pageSize = 100;
  std::optional<std::string> origin;  ///< of all URLs in responses, such as "https://maps.example"
  std::vector<std::string> trustedProxies;  ///< IP addresses
  std::vector<std::string> allowedOrigins;  ///< of web pages, such as "https://maps.example" or "*"
  std::optional<std::filesystem::path> web;  ///< folder with the web page at "/"
};

/// Prints the API root as one line on standard output when clients can connect, and the number of
/// mistakes in each package and the URL of the web page on standard error if there are any. Serves
/// until SIGINT or SIGTERM arrives, and returns the exit code. The code is 0, or 2 after a line on
/// standard error if the server could not start.
int serve(const ServeOptions& options);

}  // namespace orivanta::command
