// The venue server: serves venue packages under the paths of the web API.
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
  /// Venue packages, or folders that contain them.
  std::vector<std::filesystem::path> folders;
  std::string address = "127.0.0.1";  ///< IPv4 or IPv6, or "localhost"
  std::uint16_t port = 0;             ///< 0 selects a free port
  /// Both or neither. If set, every request must carry them (HTTP Basic), except requests for the
  /// web page.
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::size_t pageSize = 100;  ///< default number of records per page; at least 1

  /// If set, used in the URLs of all responses instead of the requested host: "https://h:1".
  std::optional<std::string> origin;
  /// IP addresses of trusted proxies. Their X-Forwarded-Proto and X-Forwarded-Host headers
  /// determine the URLs in the response; those of other clients are ignored.
  std::vector<std::string> trustedProxies;

  /// Origins such as "https://maps.example" whose web pages may read responses; "*" allows all.
  std::vector<std::string> allowedOrigins;
  /// Folder with the web page at "/". Without a folder, "/" says how to make one.
  std::optional<std::filesystem::path> web;

  ConnectionLimits limits;
  /// How often the packages on the disk are checked. A package that was replaced is read again; if
  /// that fails, the server keeps the previous one.
  std::chrono::milliseconds packageCheckInterval = std::chrono::seconds(1);
  /// Called with a line of text for the operator, on any thread, possibly concurrently. May be
  /// null.
  std::function<void(const std::string&)> report;
};

/// Serves from construction to destruction, on its own threads.
class VenueServer {
 public:
  /// Reads the packages and starts to listen. Throws `PackageError` for an invalid package,
  /// `std::system_error` if the address or the port is not available, and `std::invalid_argument`
  /// for contradictory options, an invalid origin, an invalid address of a proxy, or a folder that
  /// has no web page.
  explicit VenueServer(const ServerOptions& options);
  /// Closes all connections, even while a response is being sent.
  ~VenueServer();
  VenueServer(const VenueServer&) = delete;
  VenueServer& operator=(const VenueServer&) = delete;

  /// The root URL of the API at the server's address, such as "http://127.0.0.1:43210/1/".
  std::string root() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::server
