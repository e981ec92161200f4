// Percent-encoding, request targets, and references of records to files of their package.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::server {

/// Every byte as "%XX" but letters, digits, "-._~" and those in `kept`.
std::string percentEncoded(std::string_view bytes, std::string_view kept = {});

/// Nothing when a "%" is not followed by two hexadecimal digits.
std::optional<std::string> percentDecoded(std::string_view text);

/// The target of a request, decoded.
struct Target {
  std::vector<std::string> path;  ///< "/1/venue" is {"1", "venue"}; a slash at the end adds ""
  std::vector<std::pair<std::string, std::string>> query;

  /// The value of the first query item of this name.
  std::optional<std::string> queryValue(std::string_view name) const;
};

/// Reads "/path?query" or "http://host/path?query"; nothing when it is neither or badly encoded.
/// In the query, "+" stands for a blank.
std::optional<Target> parseTarget(std::string_view text);

/// Whether a Host header's value is a host name or an IP address, maybe with a port.
bool isHost(std::string_view text);

/// Whether a text is "http://" or "https://" and a host, maybe with a port, and nothing else.
bool isOrigin(std::string_view text);

/// The path within its package that a relative reference of a record means, percent-encoded and
/// without dot segments: "images/a b.png" gives "images/a%20b.png". A slash at the start means the
/// package's own folder. Nothing for an absolute URL, one that names another host, one that leads
/// out of the package, and one that names no file.
std::optional<std::string> pathInPackage(std::string_view reference);

}  // namespace orivanta::server
