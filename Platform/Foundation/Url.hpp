// A URL: a well-formed URI reference, absolute or relative (RFC 3986).
// Public header.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// An immutable value. The text of a URL that was parsed without a base, or that was absolute by
/// itself, is kept exactly as it was given.
class ORIVANTA_API Url {
 public:
  /// A URL from text exactly as it stands: nothing is trimmed or escaped. Nothing when the text is
  /// empty, longer than 64 KiB or no URI reference of RFC 3986 (a blank, a character outside ASCII,
  /// a stray "%").
  static std::optional<Url> parse(std::string_view text);

  /// As above, with a relative reference resolved against `base` (RFC 3986, section 5.2); against
  /// a base that is itself relative it stays as it is.
  static std::optional<Url> parse(std::string_view text, const Url& base);

  /// The "file" URL of a path; a relative one is below the current folder.
  static Url fromFile(const std::filesystem::path& path);

  /// The text of the URL.
  const std::string& absoluteString() const { return text_; }

  /// Whether there is a scheme.
  bool isAbsolute() const;

  /// The scheme as it stands in the text, without the colon. Like the other components, it is not
  /// decoded, and empty if the URL has none.
  std::string scheme() const;
  std::string host() const;   ///< without the brackets of an IPv6 address
  std::string port() const;   ///< without the colon
  std::string path() const;   ///< with its slashes
  std::string query() const;  ///< without the question mark

  /// The user name and password in front of the host, percent-decoded; the password is empty when
  /// there is only a name. Nothing when there are none.
  std::optional<std::pair<std::string, std::string>> credentials() const;
  /// The same URL without user name and password.
  Url withoutCredentials() const;

  /// The last segment of the path, percent-decoded, slashes at the end left aside; empty for a path
  /// of slashes only, nothing without a path. It may hold any byte, a slash among them.
  std::optional<std::string> lastPathComponent() const;

  /// The local file that a "file" URL means; nothing for any other, and when it names another host
  /// or its path holds a NUL.
  std::optional<std::filesystem::path> filePath() const;

  /// The query replaced by "name=value" pairs joined with "&", both percent-encoded; no "?" when
  /// there are no pairs.
  Url withQueryItems(std::span<const std::pair<std::string, std::string>> items) const;

  friend bool operator==(const Url&, const Url&) = default;

 private:
  explicit Url(std::string text) : text_(std::move(text)) {}

  std::string text_;
};

}  // namespace orivanta::foundation
