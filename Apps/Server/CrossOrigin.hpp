// Which web pages of other origins may read the server's responses (CORS).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/Message.hpp"

namespace orivanta::server {

/// The origins that the operator allows. Immutable.
class CrossOrigin {
 public:
  /// The headers of a response that pages may read, besides those that browsers always show.
  static constexpr std::string_view exposedHeaders = "ETag, Link, Retry-After";

  /// Allows no other origin: responses are not changed.
  CrossOrigin() = default;
  /// Each origin is of the form "https://maps.example:8443", or "*", which allows all. Throws
  /// `std::invalid_argument` for any other text.
  explicit CrossOrigin(const std::vector<std::string>& origins);

  bool allowsAll() const { return allowsAll_; }
  /// The allowed origins as browsers write them: in lower case, and without the default port.
  const std::vector<std::string>& origins() const { return origins_; }

  /// The response to a preflight request of an allowed origin, which browsers send without
  /// credentials. Returns nothing for all other requests.
  std::optional<Response> preflight(const Request& request) const;

  /// Adds the headers that let pages of an allowed origin read the response. `origin` is the Origin
  /// header of the request.
  void addHeaders(std::string_view origin, Response& response) const;

 private:
  bool allows(std::string_view origin) const;

  bool allowsAll_ = false;
  std::vector<std::string> origins_;
};

}  // namespace orivanta::server
