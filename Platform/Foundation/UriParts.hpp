// Parses the text of a URI (RFC 3986).
#pragma once

#include <optional>
#include <string_view>

namespace orivanta::foundation {

/// The components of a URI reference, as parts of its text, which must outlive them. They are not
/// decoded. A component that the text does not have is empty or, where that differs from an empty
/// component, missing.
struct UriParts {
  std::string_view scheme;                    ///< without the colon
  std::optional<std::string_view> authority;  ///< user information, host and port
  std::optional<std::string_view> userInfo;   ///< without the "@"
  std::string_view host;                      ///< without the brackets of an IP address
  std::string_view port;                      ///< without the colon
  std::string_view path;
  std::optional<std::string_view> query;     ///< without the question mark
  std::optional<std::string_view> fragment;  ///< without the number sign
};

/// Returns nothing if the text is not a URI reference. Takes time in proportion to the length.
std::optional<UriParts> parseUri(std::string_view text);

}  // namespace orivanta::foundation
