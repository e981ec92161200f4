// The venue server: venue packages over the web API's paths.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace orivanta::server {

/// A package that cannot be served; the text names the file and the reason.
class PackageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct ServerOptions {
  /// Venue packages, or folders of them.
  std::vector<std::filesystem::path> folders;
  std::string address = "127.0.0.1";
  std::uint16_t port = 0;  ///< 0 for a free one
  /// Both or neither: required of every request when set (HTTP Basic).
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::size_t pageSize = 100;
};

/// Serves from its construction to its destruction, on threads of its own.
class VenueServer {
 public:
  /// Reads the packages and listens. Throws `PackageError` for a bad package and
  /// `std::system_error` when the port cannot be had.
  explicit VenueServer(ServerOptions options);
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
