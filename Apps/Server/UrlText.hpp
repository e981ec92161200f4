// Percent-encoding, request targets, and references from records to files of their package.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::server {

/// Encodes every byte as "%XX" except letters, digits, "-._~" and the characters in `kept`.
std::string percentEncoded(std::string_view bytes, std::string_view kept = {});

/// Returns nothing if a "%" is not followed by two hexadecimal digits.
std::optional<std::string> percentDecoded(std::string_view text);

/// The decoded target of a request.
struct Target {
  std::vector<std::string> path;  ///< "/1/venue" is {"1", "venue"}; a trailing slash adds ""
  std::vector<std::pair<std::string, std::string>> query;

  /// The value of the first query parameter with this name.
  std::optional<std::string> queryValue(std::string_view name) const;
};

/// Parses "/path?query" or "http://host/path?query". Returns nothing if the text has neither form
/// or is badly encoded. In the query, "+" means a space.
std::optional<Target> parseTarget(std::string_view text);

/// Whether a Host header's value is a host name or an IP address, optionally with a port.
bool isHost(std::string_view text);

/// Whether the text consists of "http://" or "https://" and a host, optionally with a port.
bool isOrigin(std::string_view text);

/// Converts a relative reference in a record to a path in its package, percent-encoded and without
/// dot segments: "images/a b.png" gives "images/a%20b.png". A leading slash refers to the package's
/// folder. Returns nothing for an absolute URL, or if the reference names another host, leads out
/// of the package, or names no file.
std::optional<std::string> pathInPackage(std::string_view reference);

}  // namespace orivanta::server
