#include "Apps/Server/CrossOrigin.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <charconv>
#include <stdexcept>
#include <utility>

#include "Apps/Server/UrlText.hpp"
#include "Platform/Foundation/AsciiCase.hpp"

namespace orivanta::server {

namespace {

// Browsers use at most this: a day in Firefox, two hours in Chromium.
constexpr std::string_view preflightSeconds = "86400";

// Returns the origin as browsers write it: in lower case, and without the default port.
std::string serializedOrigin(const std::string& given) {
  std::string origin = foundation::asciiLowercased(given);
  const auto refuse = [&] {
    throw std::invalid_argument(fmt::format(
        "the allowed origin \"{}\" is neither * nor of the form https://HOST or http://HOST:PORT",
        given));
  };
  if (!isOrigin(origin)) refuse();
  const std::size_t colon = origin.rfind(':');
  if (origin[colon + 1] == '/' || origin.back() == ']') return origin;
  unsigned port = 0;
  std::from_chars(origin.data() + colon + 1, origin.data() + origin.size(), port);
  if (port > 65535) refuse();
  origin.resize(colon);
  const unsigned usual = origin.starts_with("https:") ? 443 : 80;
  return port == usual ? origin : fmt::format("{}:{}", origin, port);
}

// Header names and commas. Everything else could be an attempt to forge headers.
bool isListOfNames(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') ||
           std::string_view("-_, ").find(character) != std::string_view::npos;
  });
}

// The server ignores headers that it does not know, so pages may send any.
std::string allowedHeaders(const std::string& requested) {
  constexpr std::size_t longest = 1024;
  if (requested.empty() || requested.size() > longest || !isListOfNames(requested))
    return "Authorization";
  return boost::algorithm::icontains(requested, "authorization") ? requested
                                                                 : "Authorization, " + requested;
}

}  // namespace

CrossOrigin::CrossOrigin(const std::vector<std::string>& origins)
    : allowsAll_(std::find(origins.begin(), origins.end(), "*") != origins.end()) {
  for (const std::string& origin : origins)
    if (origin != "*") origins_.push_back(serializedOrigin(origin));
}

bool CrossOrigin::allows(std::string_view origin) const {
  return allowsAll_ || std::find(origins_.begin(), origins_.end(), origin) != origins_.end();
}

std::optional<Response> CrossOrigin::preflight(const Request& request) const {
  if (request.method != "OPTIONS" || request.requestedMethod.empty() || request.origin.empty() ||
      !allows(request.origin))
    return std::nullopt;
  Response response;
  response.status = 204;
  response.headers = {{"Access-Control-Allow-Methods", "GET, HEAD"},
                      {"Access-Control-Allow-Headers", allowedHeaders(request.requestedHeaders)},
                      {"Access-Control-Max-Age", std::string(preflightSeconds)}};
  if (request.requestedPrivateNetwork == "true")
    response.headers.emplace_back("Access-Control-Allow-Private-Network", "true");
  return response;
}

void CrossOrigin::addHeaders(std::string_view origin, Response& response) const {
  if (!allowsAll_ && origins_.empty()) return;
  if (!allowsAll_) {  // caches must not give the response to a page of another origin
    const std::string vary = response.header("Vary");
    response.setHeader("Vary", vary.empty() ? "Origin" : vary + ", Origin");
  }
  if (!allows(origin)) return;
  response.headers.emplace_back("Access-Control-Allow-Origin",
                                allowsAll_ ? std::string_view("*") : origin);
  response.headers.emplace_back("Access-Control-Expose-Headers", exposedHeaders);
}

}  // namespace orivanta::server
