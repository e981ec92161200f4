// The venue server: venue packages over the web API's paths.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Server/PackageError.hpp"

namespace orivanta::server {

struct ServerOptions {
  /// Venue packages, or folders of them.
  std::vector<std::filesystem::path> folders;
  std::string address = "127.0.0.1";  ///< of IPv4 or IPv6, or "localhost"
  std::uint16_t port = 0;             ///< 0 for a free one
  /// Both or neither: required of every request when set (HTTP Basic).
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::size_t pageSize = 100;  ///< records to a page unless the client asks otherwise; at least 1

  /// A connection on which nothing moves for so long is closed.
  std::chrono::milliseconds idleTimeout = std::chrono::seconds(30);
  /// More clients than this wait until one of the others has gone; at least 1.
  std::size_t maximumConnections = 512;
};

/// Serves from its construction to its destruction, on threads of its own.
class VenueServer {
 public:
  /// Reads the packages and listens. Throws `PackageError` for a bad package, `std::system_error`
  /// when the address or the port cannot be had, and `std::invalid_argument` for options that
  /// contradict themselves.
  explicit VenueServer(const ServerOptions& options);
  /// Drops all connections, also in the middle of an answer.
  ~VenueServer();
  VenueServer(const VenueServer&) = delete;
  VenueServer& operator=(const VenueServer&) = delete;

  /// The API root, such as "http://127.0.0.1:43210/1/".
  std::string root() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::server
