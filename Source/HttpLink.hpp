// The HTTP `Link` header (RFC 8288) in a deliberately simple grammar: plain splitting at commas,
// semicolons and equals signs, without regard to quoting.
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

/// One link: a target and its parameters. A value; equality compares both, the hash only the URI.
class ORIVANTA_API Link {
 public:
  /// A link with these parameters.
  explicit Link(std::string linkUri, Dictionary<std::string> linkParameters = {});

  /// Parses one link value such as `<page?2>; rel="next"`. The brackets are removed only when both
  /// are there, and quotes likewise; of a repeated parameter the first counts; one without "=" gets
  /// an empty value. A parameter value of a single quote stops the program with "Can't form Range
  /// with end < start".
  static Link fromHeader(std::string_view header);

  /// The target as written, which may be relative.
  std::string uri;

  /// The parameters by name.
  Dictionary<std::string> parameters;

  std::optional<std::string> relationType() const;         ///< parameter "rel"
  std::optional<std::string> reverseRelationType() const;  ///< parameter "rev"
  std::optional<std::string> type() const;                 ///< parameter "type"

  /// As an HTML link element. Nothing is escaped.
  std::string html() const;

  /// As a header value. Nothing is escaped.
  std::string header() const;

  friend bool operator==(const Link& left, const Link& right);
};

/// The links of a header, one per comma, in the order written.
ORIVANTA_API std::vector<Link> parseLinkHeader(std::string_view header);

/// A function that cuts a text at every occurrence of `separator` and trims spaces and tabs.
ORIVANTA_API std::function<std::vector<std::string>(std::string_view)> separateBy(
    std::string separator);

/// A function that cuts a text in two at the first occurrence of `separator`; without one the
/// second part is empty.
ORIVANTA_API std::function<std::pair<std::string, std::string>(std::string_view)> split(
    std::string separator);

/// A function that removes one character from each end of a text that begins with the first and
/// ends with the second of `ends`. A text of one character that does both stops the program.
ORIVANTA_API std::function<std::string(std::string_view)> trim(std::pair<char, char> ends);

/// The first element and the rest; ("", {}) of an empty list.
ORIVANTA_API std::pair<std::string, std::vector<std::string>> takeFirst(
    const std::vector<std::string>& texts);

/// The links of a response, their URIs resolved against its URL where both allow it.
ORIVANTA_API std::vector<Link> links(const network::HttpUrlResponse& response);

/// The first link that has all of the given parameters.
ORIVANTA_API std::optional<Link> findLink(const network::HttpUrlResponse& response,
                                          const Dictionary<std::string>& parameters);

/// The first link of the given relation type.
ORIVANTA_API std::optional<Link> findLink(const network::HttpUrlResponse& response,
                                          std::string_view relation);

}  // namespace orivanta

/// Hash of a link, by its target.
template <>
struct std::hash<orivanta::Link> {
  /// The hash.
  std::size_t operator()(const orivanta::Link& link) const {
    return std::hash<std::string>()(link.uri);
  }
};
