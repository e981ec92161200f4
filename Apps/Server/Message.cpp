#include "Apps/Server/Message.hpp"

#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

#include "Apps/Server/ContentNegotiation.hpp"

namespace orivanta::server {

std::string Response::header(std::string_view name) const {
  for (const auto& [key, value] : headers)
    if (key == name) return value;
  return {};
}

void Response::setHeader(std::string_view name, std::string_view value) {
  for (auto& [key, old] : headers)
    if (key == name) {
      old = value;
      return;
    }
  headers.emplace_back(name, value);
}

std::uint64_t Response::contentLength() const {
  if (file) return file->size();
  return text ? text->size() : 0;
}

Response errorResponse(unsigned status, std::string_view message) {
  const boost::json::value body = {{"error", {{"status", status}, {"message", message}}}};
  Response response;
  response.status = status;
  response.headers = {{"Content-Type", "application/json"}};
  response.text = std::make_shared<const std::string>(boost::json::serialize(body));
  return response;
}

std::optional<Response> methodRefusal(const Request& request) {
  if (request.method == "GET" || request.method == "HEAD") return std::nullopt;
  Response response = errorResponse(405, "Only GET and HEAD are supported.");
  response.headers.emplace_back("Allow", "GET, HEAD");
  return response;
}

Response unavailableResponse(std::string_view message) {
  Response response = errorResponse(503, message);
  response.headers.emplace_back("Retry-After", "1");
  return response;
}

Response representationResponse(const Request& request,
                                const std::shared_ptr<const Representation>& representation,
                                std::string_view contentType, std::string_view vary) {
  Response response;
  response.headers = {{"ETag", representation->entityTag}, {"Cache-Control", "no-cache"}};
  if (!vary.empty()) response.headers.emplace_back("Vary", vary);
  if (namesEntityTag(request.ifNoneMatch, representation->entityTag)) {
    response.status = 304;
    return response;
  }
  response.headers.emplace_back("Content-Type", contentType);
  if (representation->gzip) response.headers.emplace_back("Content-Encoding", "gzip");
  response.text = std::shared_ptr<const std::string>(representation, &representation->body);
  return response;
}

}  // namespace orivanta::server
