// Requests and responses as the router sees them, without connections.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Server/PackageFile.hpp"

namespace orivanta::server {

/// The parts of a request that decide the answer. Headers are empty when missing; several lines of
/// one are joined with commas.
struct Request {
  std::string method = "GET";
  std::string target = "/";
  std::string host{};
  std::string authorization{};
  std::string acceptEncoding{};
  std::string acceptLanguage{};
  std::string ifNoneMatch{};
  /// X-Forwarded-Proto and X-Forwarded-Host. Filled only if a trusted proxy sent the request.
  std::string forwardedProtocol{};
  std::string forwardedHost{};
};

/// The bytes that stand for a resource under some request, ready to be sent.
struct Representation {
  std::string body;
  std::string entityTag;  ///< strong, with its quotes
  bool gzip = false;      ///< whether the body is compressed
};

struct Response {
  unsigned status = 200;
  std::vector<std::pair<std::string, std::string>> headers;
  std::shared_ptr<const std::string> text;  ///< the body, or null
  std::optional<PackageFile> file;          ///< the body, or nothing
  bool bodyOmitted = false;                 ///< send the headers alone, the body's length included

  /// The value of the first header of exactly this name, or "".
  std::string header(std::string_view name) const;
  std::uint64_t contentLength() const;
};

/// Answers a request. Called by several threads at once. May throw: the client gets a status of
/// 500.
using RequestHandler = std::function<Response(const Request&)>;

/// An answer whose body is {"error": {"status": ..., "message": ...}}.
Response errorResponse(unsigned status, std::string_view message);

/// 503: the server lacks something for the moment, and the client may ask again in a second.
Response unavailableResponse(std::string_view message);

/// 200 with the representation, or 304 when the request names its entity tag.
Response representationResponse(const Request& request,
                                const std::shared_ptr<const Representation>& representation,
                                std::string_view contentType, std::string_view vary);

}  // namespace orivanta::server
