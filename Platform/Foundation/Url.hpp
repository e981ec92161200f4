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

/// An immutable URL. If it was parsed without a base, or was absolute, its text is kept unchanged.
class ORIVANTA_API Url {
 public:
  /// Parses a URL without trimming or escaping the text. Returns nothing if the text is empty,
  /// longer than 64 KiB or not a URI reference of RFC 3986 (for example, if it contains a blank, a
  /// non-ASCII character or a "%" that does not begin an escape).
  static std::optional<Url> parse(std::string_view text);

  /// As above, but resolves a relative reference against `base` (RFC 3986, section 5.2). If `base`
  /// is relative, the reference is left unchanged.
  static std::optional<Url> parse(std::string_view text, const Url& base);

  /// Returns the "file" URL of a path. A relative path is resolved against the current folder.
  static Url fromFile(const std::filesystem::path& path);

  /// Returns the text of the URL.
  const std::string& absoluteString() const { return text_; }

  /// Returns whether the URL has a scheme.
  bool isAbsolute() const;

  /// Returns the scheme as it is written in the text, without the colon. This and the next four
  /// functions do not decode the component, and return an empty string if the URL does not have it.
  std::string scheme() const;
  std::string host() const;   ///< without the brackets of an IPv6 address
  std::string port() const;   ///< without the colon
  std::string path() const;   ///< including its slashes
  std::string query() const;  ///< without the question mark

  /// Returns the user name and the password, percent-decoded. The password is empty if the URL has
  /// only a user name. Returns nothing if the URL has no credentials.
  std::optional<std::pair<std::string, std::string>> credentials() const;
  /// Returns the URL without the user name and the password.
  Url withoutCredentials() const;

  /// Returns the last segment of the path, percent-decoded. Slashes at the end of the path are
  /// ignored. Returns an empty string if the path has only slashes, and nothing if there is no
  /// path. The result may contain any byte, including a slash.
  std::optional<std::string> lastPathComponent() const;

  /// Returns the path of the local file of a "file" URL. Returns nothing if the scheme is not
  /// "file", the URL names another host or the path contains a NUL.
  std::optional<std::filesystem::path> filePath() const;

  /// Returns the URL with its query replaced by "name=value" pairs joined with "&". Names and
  /// values are percent-encoded. If there are no pairs, the result has no "?".
  Url withQueryItems(std::span<const std::pair<std::string, std::string>> items) const;

  friend bool operator==(const Url&, const Url&) = default;

 private:
  explicit Url(std::string text) : text_(std::move(text)) {}

  std::string text_;
};

}  // namespace orivanta::foundation
