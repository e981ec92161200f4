// The HTTP `Link` header (RFC 8288) in a simplified grammar: text is split at commas, semicolons
// and equals signs, and quoting is ignored.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// A link: a target and its parameters. Equality compares both; the hash covers only the target.
class ORIVANTA_API Link {
 public:
  /// Creates a link with these parameters.
  explicit Link(std::string linkUri, Dictionary<std::string> linkParameters = {});

  /// Parses one link value such as `<page?2>; rel="next"`. Brackets are removed only if both are
  /// present, and so are quotes. If a parameter is repeated, the first one is used; a parameter
  /// without "=" has an empty value. A parameter value that is a single quote stops the program
  /// with "Can't form Range with end < start".
  static Link fromHeader(std::string_view header);

  /// The target as written, possibly a relative reference.
  std::string uri;

  /// The parameters by name.
  Dictionary<std::string> parameters;

  std::optional<std::string> relationType() const;         ///< parameter "rel"
  std::optional<std::string> reverseRelationType() const;  ///< parameter "rev"
  std::optional<std::string> type() const;                 ///< parameter "type"

  /// Returns the link as an HTML link element. Nothing is escaped.
  std::string html() const;

  /// Returns the link as a header value. Nothing is escaped.
  std::string header() const;

  friend bool operator==(const Link& left, const Link& right);
};

/// Parses the links of a header, separated by commas, in order.
ORIVANTA_API std::vector<Link> parseLinkHeader(std::string_view header);

/// Returns a function that splits a text at each `separator` and trims spaces and tabs.
ORIVANTA_API std::function<std::vector<std::string>(std::string_view)> separateBy(
    std::string separator);

/// Returns a function that splits a text at the first `separator`. If there is none, the second
/// part is empty.
ORIVANTA_API std::function<std::pair<std::string, std::string>(std::string_view)> split(
    std::string separator);

/// Returns a function that removes the first and the last character of a text if they are the first
/// and the second of `ends`. A text of a single character that matches both stops the program.
ORIVANTA_API std::function<std::string(std::string_view)> trim(std::pair<char, char> ends);

/// Returns the first element and the rest, or ("", {}) if the list is empty.
ORIVANTA_API std::pair<std::string, std::vector<std::string>> takeFirst(
    const std::vector<std::string>& texts);

/// Returns the links of a response. URIs are resolved against its URL if both are valid.
ORIVANTA_API std::vector<Link> links(const network::HttpUrlResponse& response);

/// Returns the first link that has all of the given parameters.
ORIVANTA_API std::optional<Link> findLink(const network::HttpUrlResponse& response,
                                          const Dictionary<std::string>& parameters);

/// Returns the first link with the given relation type.
ORIVANTA_API std::optional<Link> findLink(const network::HttpUrlResponse& response,
                                          std::string_view relation);

}  // namespace orivanta

/// Hash of a link, by its target.
template <>
struct std::hash<orivanta::Link> {
  /// Returns the hash.
  std::size_t operator()(const orivanta::Link& link) const {
    return std::hash<std::string>()(link.uri);
  }
};
