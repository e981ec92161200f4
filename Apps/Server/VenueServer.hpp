// The venue server: venue packages over the web API's paths.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Server/ConnectionLimits.hpp"
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

  /// Stands in the URLs of every answer instead of the host that the client asked: "https://h:1".
  std::optional<std::string> origin;
  /// IP addresses of proxies. What they say with X-Forwarded-Proto and X-Forwarded-Host about the
  /// client's request goes into the URLs of the answer. Nobody is trusted who is not named here.
  std::vector<std::string> trustedProxies;

  ConnectionLimits limits;
  /// How often the packages on the disk are looked at. One that was replaced is read again; if it
  /// cannot be read, the server keeps what it has.
  std::chrono::milliseconds packageCheckInterval = std::chrono::seconds(1);
  /// Called with a line of text for whoever runs the server, on any thread, also at once. May be
  /// null.
  std::function<void(const std::string&)> report;
};

/// Serves from its construction to its destruction, on threads of its own.
class VenueServer {
 public:
  /// Reads the packages and listens. Throws `PackageError` for a bad package, `std::system_error`
  /// when the address or the port cannot be had, and `std::invalid_argument` for options that
  /// contradict themselves, an origin that is none, and a proxy whose address is none.
  explicit VenueServer(const ServerOptions& options);
  /// Drops all connections, also in the middle of an answer.
  ~VenueServer();
  VenueServer(const VenueServer&) = delete;
  VenueServer& operator=(const VenueServer&) = delete;

  /// The API root at the server's own address, such as "http://127.0.0.1:43210/1/".
  std::string root() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::server
