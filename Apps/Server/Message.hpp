// Requests and responses as the router handles them, independent of connections.
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

/// The parts of a request that affect the response. Missing headers are empty; repeated headers are
/// joined with commas.
struct Request {
  std::string method = "GET";
  std::string target = "/";
  std::string host{};
  std::string authorization{};
  std::string accept{};
  std::string acceptEncoding{};
  std::string acceptLanguage{};
  std::string ifNoneMatch{};
  /// X-Forwarded-Proto and X-Forwarded-Host. Empty unless a trusted proxy sent the request.
  std::string forwardedProtocol{};
  std::string forwardedHost{};
  std::string origin{};  ///< of the web page that sends the request
  /// Access-Control-Request-Method, -Headers and -Private-Network.
  std::string requestedMethod{};
  std::string requestedHeaders{};
  std::string requestedPrivateNetwork{};
};

/// The bytes that represent a resource, ready to be sent.
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
  bool bodyOmitted = false;                 ///< send only the headers, including the body's length

  /// If set, computes the response instead: calls `completed` once, on any thread, unless the
  /// server is stopping. The other members are unused then.
  std::function<void(std::function<void(Response)> completed)> deferred = nullptr;

  /// The value of the first header with exactly this name, or "".
  std::string header(std::string_view name) const;
  /// Replaces the first header with exactly this name, or adds one.
  void setHeader(std::string_view name, std::string_view value);
  std::uint64_t contentLength() const;
};

/// Handles a request. Called concurrently from several threads. If it throws, the client receives
/// status 500.
using RequestHandler = std::function<Response(const Request&)>;

/// A response whose body is {"error": {"status": ..., "message": ...}}.
Response errorResponse(unsigned status, std::string_view message);

/// 405 unless the method is GET or HEAD.
std::optional<Response> methodRefusal(const Request& request);

/// 503: a resource is temporarily unavailable, and the client may retry after a second.
Response unavailableResponse(std::string_view message);

/// 200 with the representation, or 304 if the request names its entity tag.
Response representationResponse(const Request& request,
                                const std::shared_ptr<const Representation>& representation,
                                std::string_view contentType, std::string_view vary);

}  // namespace orivanta::server
